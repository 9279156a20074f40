// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace orrin {

/*! What became of one HTTP request, before anybody reads the body. A value. */
struct TransportResult
{
    enum class Failure {
        None,    //!< there is an HTTP answer, whatever its status
        Refused, //!< nobody listens
        Lost,    //!< the connection ended before the answer was complete
        TimedOut,
        KeyChanged, //!< the device showed another public key than the session trusts
        TooLarge,
        Other,
    };

    Failure failure = Failure::None;
    int status = 0;
    QByteArray body;
    QList<QByteArray> challenges; //!< values of WWW-Authenticate
    int retryAfter = 0;           //!< seconds, where the header names them
    QString detail;               //!< for the log
};

} // namespace orrin
