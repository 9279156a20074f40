// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QHostAddress>
#include <QString>
#include <QUrlQuery>

class QHttpServerRequest;

namespace orrin::demo {

/*! One HTTP request, taken out of the server's own type so that it can be kept until it is answered. A plain
 * value. */
struct HttpRequest
{
    explicit HttpRequest(const QHttpServerRequest &request);
    HttpRequest() = default;

    QByteArray method; //!< "GET", "POST", …
    QByteArray target; //!< path and query as in the request line
    QString path;
    QUrlQuery query;
    QByteArray authorization; //!< the header's value, empty without one
    QByteArray host;          //!< the Host header where it is sane, else the local address and port
    QByteArray body;
    QHostAddress peer;
    quint16 peerPort = 0;
};

} // namespace orrin::demo
