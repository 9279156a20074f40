// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace orrin::test {

/*! What a file holds, by libavformat and libavcodec. */
struct ClipContents
{
    bool readable = false;
    QByteArray codec;
    int width = 0;
    int height = 0;
    qint64 durationMs = 0;
    QString createdText;
    struct Picture
    {
        qint64 timeMs = 0;
        bool key = false;
        QByteArray luma; //!< decoded, without padding
    };
    QList<Picture> pictures;
};

ClipContents readClip(const QString &fileName);

} // namespace orrin::test
