// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/rtsp/connection.h"

#include <QSslCertificate>
#include <QSslKey>
#include <QSslSocket>
#include <QThread>
#include <QTimer>

#include <utility>

namespace orrin::rtsp {

namespace {

constexpr qint64 ReadBufferBytes = 256 * 1024;
constexpr std::chrono::seconds LingerTime{2};
constexpr int DefaultPort = 554;
constexpr int DefaultSecurePort = 322;

// The socket outlives its client until what was written is sent.
void linger(QSslSocket *socket)
{
    socket->setParent(nullptr);
    if (socket->state() != QAbstractSocket::ConnectedState) {
        socket->abort();
        socket->deleteLater();
        return;
    }
    QObject::connect(socket, &QAbstractSocket::disconnected, socket, &QObject::deleteLater);
    QObject::connect(socket, &QAbstractSocket::errorOccurred, socket, &QObject::deleteLater);
    QObject::connect(QThread::currentThread(), &QThread::finished, socket, &QObject::deleteLater);
    QTimer::singleShot(LingerTime, socket, &QObject::deleteLater);
    socket->disconnectFromHost();
}

} // namespace

Connection::Connection(QObject *parent) : QObject(parent), m_timer(new QTimer(this))
{
    m_timer->setSingleShot(true);
    connect(m_timer, &QTimer::timeout, this,
            [this] { fail(Failure::Kind::Timeout, tr("The server does not answer.")); });
}

Connection::~Connection()
{
    close();
}

void Connection::open(const QUrl &url, const QByteArray &trustedKey, std::chrono::milliseconds timeout)
{
    close();
    m_trustedKey = trustedKey;
    m_secure = url.scheme() == QLatin1StringView("rtsps");
    m_socket = new QSslSocket(this);
    m_socket->setReadBufferSize(ReadBufferBytes);
    m_socket->setPeerVerifyMode(QSslSocket::VerifyNone);
    connect(m_socket, &QAbstractSocket::errorOccurred, this,
            [this] { fail(Failure::Kind::Connection, m_socket->errorString()); });
    connect(m_socket, &QIODevice::readyRead, this, [this] {
        if (!m_secure || m_socket->isEncrypted())
            Q_EMIT readable();
    });
    m_timer->start(timeout);
    if (m_secure) {
        connect(m_socket, &QSslSocket::encrypted, this, &Connection::encrypted);
        m_socket->connectToHostEncrypted(url.host(), quint16(url.port(DefaultSecurePort)));
    } else {
        connect(m_socket, &QAbstractSocket::connected, this, [this] {
            m_timer->stop();
            m_socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
            Q_EMIT established();
        });
        m_socket->connectToHost(url.host(), quint16(url.port(DefaultPort)));
    }
}

void Connection::encrypted()
{
    m_timer->stop();
    const QByteArray key = m_socket->peerCertificate().publicKey().toDer();
    if (!m_trustedKey.isEmpty() && key != m_trustedKey) {
        fail(Failure::Kind::UntrustedKey, QString());
        return;
    }
    m_socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    Q_EMIT established();
}

std::size_t Connection::read(std::span<char> place)
{
    const qint64 size = m_socket ? m_socket->read(place.data(), qint64(place.size())) : 0;
    return size > 0 ? std::size_t(size) : 0;
}

bool Connection::hasBytes() const
{
    return m_socket && m_socket->bytesAvailable() > 0;
}

void Connection::write(const QByteArray &bytes)
{
    if (m_socket)
        m_socket->write(bytes);
}

void Connection::close()
{
    m_timer->stop();
    if (!m_socket)
        return;
    disconnect(m_socket, nullptr, this, nullptr);
    linger(std::exchange(m_socket, nullptr));
}

void Connection::fail(Failure::Kind kind, const QString &detail)
{
    m_timer->stop();
    if (m_socket) {
        disconnect(m_socket, nullptr, this, nullptr);
        QSslSocket *socket = std::exchange(m_socket, nullptr);
        socket->abort();
        socket->deleteLater();
    }
    Q_EMIT broken({kind, detail});
}

} // namespace orrin::rtsp
