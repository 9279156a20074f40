// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>
#include <QHash>
#include <QHostAddress>
#include <QObject>
#include <QSslServer>
#include <QTimer>

class QTcpSocket;

namespace orrin::demo {

/*!
    A TLS server that keeps an eye on the connections it gave away: how many there are, how much each sends
   for one request, and how long it is idle. What goes too far is closed. GUI thread.
*/
class ConnectionGuard : public QSslServer
{
    Q_OBJECT

public:
    static constexpr int MaximumConnections = 256;
    static constexpr qint64 MaximumRequestBytes = 1024 * 1024 + 64 * 1024;
    static constexpr std::chrono::seconds MaximumIdle{90};

    explicit ConnectionGuard(QObject *parent = nullptr);

    QTcpSocket *nextPendingConnection() override;

    /*! The request of this peer was taken and is being answered. */
    void requestTaken(quint16 peerPort);
    /*! The request of this peer was answered. */
    void requestAnswered(quint16 peerPort);

    /*! Writes \a bytes to the peer as they are and closes the connection. */
    void writeRaw(quint16 peerPort, const QByteArray &bytes);

    void dropAll();
    int connectionCount() const { return int(m_connections.size()); }

private:
    struct Connection
    {
        QTcpSocket *socket = nullptr;
        qint64 received = 0;
        bool answering = false;
        bool closing = false;
        QElapsedTimer idle;
    };

    void watch(QTcpSocket *socket);
    void received(quint16 peerPort);
    void dropIdle();

    // A peer is told apart by its port: the server listens on one address, and few clients come from two.
    QHash<quint16, Connection> m_connections;
    QTimer m_sweep;
};

} // namespace orrin::demo
