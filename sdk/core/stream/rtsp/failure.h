// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace orrin::rtsp {

/*! Why a connection ended. A value; the detail is for people and holds no secret. */
struct Failure
{
    enum class Kind {
        Connection,   //!< refused, unreachable, broken off
        Timeout,      //!< no answer, or no packets in play
        UntrustedKey, //!< the server shows another key than the trusted one
        Unauthorised, //!< the credentials were refused, or there is no way to give them safely
        NotFound,
        InvalidRange, //!< the moment asked for is not in the recording
        Unsupported,  //!< no medium, transport or option that both sides know
        Protocol,     //!< what came is no RTSP, or too large
        Ended,        //!< the server ended the stream
    };

    Kind kind = Kind::Connection;
    QString detail;
};

} // namespace orrin::rtsp
