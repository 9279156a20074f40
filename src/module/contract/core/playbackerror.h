// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>

#include <QMetaType>
#include <QString>

namespace orrin {

/*! What went wrong in a running stream. A value. */
class ORRINSDK_CORE_EXPORT PlaybackError
{
public:
    enum Code : int {
        NoError = 0,
        PrivateKeyRequired = 1,
        PrivateKeyWrong = 2,
        PrivateKeyPasswordRequired = 3,
        PrivateKeyPasswordWrong = 4,
        StreamLost = 5,      //!< the connection broke; it is tried again
        PrivateKeyExpired = 6,
        NotPermitted = 7,    //!< the server refuses this user the stream
        BeyondEnd = 8,       //!< the moment lies beyond the end of the recording
        NotFound = 9,        //!< the server has no such stream
        Unsupported = 10,    //!< a codec or transport that cannot be played
        Corrupt = 11,        //!< what arrives cannot be decoded
        UntrustedKey = 12,   //!< the server shows another key than the one that is trusted
    };

    PlaybackError() = default;
    /*! \a detail is shown to the user behind the code's text; it is plain text. */
    explicit PlaybackError(int code, const QString &detail = {}) : m_code(code), m_detail(detail) {}
    virtual ~PlaybackError() = default;
    PlaybackError(const PlaybackError &) = default;
    PlaybackError &operator=(const PlaybackError &) = default;

    /*! A Code. */
    virtual int errorCode() const { return m_code; }

    /*! The text for the user, as HTML; whatever came from outside is escaped. */
    QString formattedHTMLString() const;

private:
    int m_code = NoError;
    QString m_detail;
};

} // namespace orrin

Q_DECLARE_METATYPE(orrin::PlaybackError)
