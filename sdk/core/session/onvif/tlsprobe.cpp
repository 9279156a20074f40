// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/onvif/tlsprobe.h"

#include <QHostAddress>
#include <QNetworkProxy>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>

namespace orrin {

TlsProbe::TlsProbe(QObject *parent) : QObject(parent)
{
    m_handshakeTimer.setSingleShot(true);
    connect(&m_socket, &QAbstractSocket::connected, this, &TlsProbe::onConnected);
    connect(&m_socket, &QSslSocket::encrypted, this, &TlsProbe::onEncrypted);
    connect(&m_socket, &QAbstractSocket::errorOccurred, this, &TlsProbe::onError);
    connect(&m_handshakeTimer, &QTimer::timeout, this, [this] {
        m_detail = QStringLiteral("no TLS greeting in time");
        finish(Outcome::NoTls);
    });
}

TlsProbe::~TlsProbe()
{
    // The socket's own end must not report into an object that is half gone.
    m_socket.disconnect(this);
}

void TlsProbe::start(const CorvaneUrl &url)
{
    m_socket.setProxy(QNetworkProxy::NoProxy);
    m_socket.setPeerVerifyMode(QSslSocket::VerifyNone);
    m_socket.connectToHostEncrypted(url.host(), static_cast<quint16>(url.port()));
}

void TlsProbe::onConnected()
{
    m_connected = true;
    QHostAddress address = m_socket.peerAddress();
    // A socket for both families tells IPv4 peers as mapped ones.
    bool isIpv4 = false;
    const quint32 ipv4 = address.toIPv4Address(&isIpv4);
    if (isIpv4)
        address = QHostAddress(ipv4);
    m_address = address.toString();
    m_handshakeTimer.start(m_handshakeTime);
}

void TlsProbe::onEncrypted()
{
    m_key = m_socket.peerCertificate().publicKey().toDer();
    if (m_key.isEmpty())
        m_detail = QStringLiteral("no readable public key");
    finish(m_key.isEmpty() ? Outcome::NoTls : Outcome::Encrypted);
}

void TlsProbe::onError(QAbstractSocket::SocketError error)
{
    m_detail = m_socket.errorString();
    if (m_connected)
        finish(Outcome::NoTls);
    else if (error == QAbstractSocket::HostNotFoundError)
        finish(Outcome::UnknownHost);
    else if (error == QAbstractSocket::ConnectionRefusedError)
        finish(Outcome::Refused);
    else
        finish(Outcome::Unreachable);
}

void TlsProbe::finish(Outcome outcome)
{
    if (m_finished)
        return;
    m_finished = true;
    m_handshakeTimer.stop();
    // Queued: the socket may still be in the middle of its own work, and the receiver may delete it.
    QMetaObject::invokeMethod(
        this,
        [this, outcome] {
            m_socket.abort();
            Q_EMIT finished(outcome);
        },
        Qt::QueuedConnection);
}

} // namespace orrin
