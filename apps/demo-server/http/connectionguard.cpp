// SPDX-License-Identifier: GPL-3.0-or-later
#include "http/connectionguard.h"

#include <QSslSocket>

namespace orrin::demo {

namespace {
constexpr std::chrono::seconds SweepInterval{10};
} // namespace

ConnectionGuard::ConnectionGuard(QObject *parent) : QSslServer(parent)
{
    m_sweep.setInterval(SweepInterval);
    connect(&m_sweep, &QTimer::timeout, this, &ConnectionGuard::dropIdle);
    m_sweep.start();
}

QTcpSocket *ConnectionGuard::nextPendingConnection()
{
    // The HTTP server fetches its connections here and only then listens to them: the guard sees all data
    // first.
    QTcpSocket *socket = QSslServer::nextPendingConnection();
    if (socket)
        watch(socket);
    return socket;
}

void ConnectionGuard::watch(QTcpSocket *socket)
{
    const quint16 port = socket->peerPort();
    Connection connection;
    connection.socket = socket;
    connection.idle.start();
    const bool tooMany = m_connections.size() >= MaximumConnections;
    m_connections.insert(port, connection);
    connect(socket, &QTcpSocket::readyRead, this, [this, port] { received(port); });
    const auto forget = [this, port, socket] {
        const auto found = m_connections.constFind(port);
        if (found != m_connections.cend() && found->socket == socket)
            m_connections.erase(found);
    };
    connect(socket, &QTcpSocket::disconnected, this, forget);
    connect(socket, &QObject::destroyed, this, forget);
    if (tooMany)
        QMetaObject::invokeMethod(socket, [socket] { socket->abort(); }, Qt::QueuedConnection);
}

void ConnectionGuard::received(quint16 peerPort)
{
    const auto connection = m_connections.find(peerPort);
    if (connection == m_connections.end())
        return;
    if (connection->closing)
        return;
    connection->idle.restart();
    if (connection->answering) {
        // Requests that are sent ahead wait in the socket. Its own limit is no help: a TLS socket that
        // reached it does not go on reading.
        if (connection->socket->bytesAvailable() > MaximumRequestBytes)
            connection->socket->abort();
        return;
    }
    // The HTTP server reads all that is there each time, so what is there now is new.
    connection->received += connection->socket->bytesAvailable();
    if (connection->received <= MaximumRequestBytes)
        return;
    writeRaw(peerPort, "HTTP/1.1 413 Payload Too Large\r\nContent-Length: 0\r\nConnection: close\r\n\r\n");
}

void ConnectionGuard::requestTaken(quint16 peerPort)
{
    const auto connection = m_connections.find(peerPort);
    if (connection == m_connections.end())
        return;
    connection->answering = true;
    connection->received = 0;
    connection->idle.restart();
}

void ConnectionGuard::requestAnswered(quint16 peerPort)
{
    const auto connection = m_connections.find(peerPort);
    if (connection == m_connections.end())
        return;
    connection->answering = false;
    connection->idle.restart();
}

void ConnectionGuard::writeRaw(quint16 peerPort, const QByteArray &bytes)
{
    const auto connection = m_connections.find(peerPort);
    if (connection == m_connections.end())
        return;
    connection->closing = true;
    QTcpSocket *socket = connection->socket;
    socket->write(bytes);
    socket->flush();
    // Reading on would feed an HTTP server that is not to see this request; closing waits for the bytes.
    QMetaObject::invokeMethod(socket, [socket] { socket->disconnectFromHost(); }, Qt::QueuedConnection);
}

void ConnectionGuard::dropAll()
{
    const auto connections = m_connections;
    for (const Connection &connection : connections)
        connection.socket->abort();
    while (hasPendingConnections()) {
        if (QTcpSocket *socket = QSslServer::nextPendingConnection()) {
            socket->abort();
            socket->deleteLater();
        }
    }
}

void ConnectionGuard::dropIdle()
{
    const auto connections = m_connections;
    for (const Connection &connection : connections) {
        if (!connection.answering && connection.idle.durationElapsed() > MaximumIdle)
            connection.socket->abort();
    }
}

} // namespace orrin::demo
