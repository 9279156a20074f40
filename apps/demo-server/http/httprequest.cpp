// SPDX-License-Identifier: GPL-3.0-or-later
#include "http/httprequest.h"

#include <QHttpHeaders>
#include <QHttpServerRequest>
#include <QMetaEnum>
#include <QRegularExpression>

namespace orrin::demo {

using namespace Qt::StringLiterals;

namespace {

/*! The host is repeated in answers: nothing but a plain name or address with a port may get there. */
QByteArray saneHost(const QByteArray &value, const QHttpServerRequest &request)
{
    static const QRegularExpression pattern(
        u"^([A-Za-z0-9.-]{1,253}|\\[[0-9A-Fa-f:.]{2,45}\\])(:[0-9]{1,5})?$"_s);
    if (pattern.match(QString::fromLatin1(value)).hasMatch())
        return value;
    const QHostAddress address = request.localAddress();
    const QString text = address.protocol() == QAbstractSocket::IPv6Protocol
                             ? u'[' + address.toString() + u']'
                             : address.toString();
    return text.toLatin1() + ':' + QByteArray::number(request.localPort());
}

} // namespace

HttpRequest::HttpRequest(const QHttpServerRequest &request)
    : path(request.url().path())
    , query(request.query())
    , authorization(request.headers().value(QHttpHeaders::WellKnownHeader::Authorization).toByteArray())
    , host(saneHost(request.headers().value(QHttpHeaders::WellKnownHeader::Host).toByteArray(), request))
    , body(request.body())
    , peer(request.remoteAddress())
    , peerPort(request.remotePort())
{
    const auto methods = QMetaEnum::fromType<QHttpServerRequest::Method>();
    method = QByteArray(methods.valueToKey(int(request.method()))).toUpper();
    target = request.url().toEncoded(QUrl::RemoveScheme | QUrl::RemoveAuthority | QUrl::RemoveFragment);
}

} // namespace orrin::demo
