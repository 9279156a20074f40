// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>

namespace orrin {

/*! Coded pictures for tests: each in one even luma of its own, so that a reader can tell which one it sees. */
class StreamEncoder
{
public:
    /*! \a name is an encoder of libavcodec: "libx264", "libx265" or "mjpeg". */
    StreamEncoder(const char *name, int width, int height);

    struct Picture
    {
        QByteArray data; //!< Annex B or a JPEG file
        bool key = false;
    };

    /*! Pictures in order, the first a key frame and each \a interval -th after it; empty without the encoder. */
    QList<Picture> encode(const QList<int> &lumas, int interval) const;

private:
    const char *m_name;
    int m_width;
    int m_height;
};

} // namespace orrin
