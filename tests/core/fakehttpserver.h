// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QSslServer>
#include <QTcpServer>
#include <QTcpSocket>

#include <functional>
#include <memory>
#include <optional>

namespace orrin::test {

struct FakeRequest
{
    QByteArray method;
    QByteArray target;
    QHash<QByteArray, QByteArray> headers; //!< names in lower case
    QByteArray body;
};

struct FakeAnswer
{
    int status = 200;
    QByteArray body;
    QList<QByteArray> headers;
    bool raw = false; //!< body is the whole answer, and the connection is then closed
};

/*! An HTTP server of few words on a free port of the loopback address, with or without TLS. All bytes that
    clients send are kept, so that a test can look for what must not be among them. One thread. */
class FakeHttpServer : public QObject
{
    Q_OBJECT
public:
    /*! Nothing: the request stays without an answer. */
    using Handler = std::function<std::optional<FakeAnswer>(const FakeRequest &)>;

    FakeHttpServer();
    ~FakeHttpServer() override;

    /*! \a key: "first" or "second"; empty for no TLS. \a port 0: any free one, and the same again after
     * stop(). */
    bool start(const QString &key, quint16 port = 0);
    /*! Stops listening and breaks off all connections. */
    void stop();

    /*! Answers the newest request that was left without an answer; false when there is none. */
    bool answerHeld(const FakeAnswer &answer);

    quint16 port() const { return m_port; }
    void setHandler(Handler handler) { m_handler = std::move(handler); }

    const QList<FakeRequest> &requests() const { return m_requests; }
    const QByteArray &received() const { return m_received; }
    void forget();

    /*! The public key in \a key's certificate, DER. */
    static QByteArray derKey(const QString &key);

private:
    void onConnection();
    void onBytes(QTcpSocket *socket);
    bool takeRequest(QTcpSocket *socket);
    static void send(QTcpSocket *socket, const FakeAnswer &answer);

    std::unique_ptr<QTcpServer> m_server;
    Handler m_handler;
    QHash<QTcpSocket *, QByteArray> m_buffers;
    QList<FakeRequest> m_requests;
    QPointer<QTcpSocket> m_held;
    QByteArray m_received;
    quint16 m_port = 0;
};

} // namespace orrin::test
