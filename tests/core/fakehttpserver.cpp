// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakehttpserver.h"

#include <QFile>
#include <QPointer>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>
#include <QSslSocket>

namespace orrin::test {

namespace {

QByteArray keyFile(const QString &key)
{
    QFile file(QStringLiteral(ORRIN_TEST_KEYS) + u'/' + key + QStringLiteral(".pem"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

FakeHttpServer::FakeHttpServer() = default;

FakeHttpServer::~FakeHttpServer()
{
    stop();
}

bool FakeHttpServer::start(const QString &key, quint16 port)
{
    if (key.isEmpty()) {
        m_server = std::make_unique<QTcpServer>();
    } else {
        auto server = std::make_unique<QSslServer>();
        const QByteArray pem = keyFile(key);
        QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
        configuration.setLocalCertificate(QSslCertificate(pem));
        configuration.setPrivateKey(QSslKey(pem, QSsl::Ec));
        server->setSslConfiguration(configuration);
        m_server = std::move(server);
    }
    connect(m_server.get(), &QTcpServer::pendingConnectionAvailable, this, &FakeHttpServer::onConnection);
    const bool listens = m_server->listen(QHostAddress::LocalHost, port != 0 ? port : m_port);
    m_port = m_server->serverPort();
    return listens;
}

void FakeHttpServer::stop()
{
    if (!m_server)
        return;
    m_server->close();
    const QList<QTcpSocket *> sockets = m_buffers.keys();
    m_buffers.clear();
    for (QTcpSocket *socket : sockets) {
        socket->disconnect(this);
        socket->abort();
    }
    m_server.reset();
}

void FakeHttpServer::forget()
{
    m_requests.clear();
    m_received.clear();
}

QByteArray FakeHttpServer::derKey(const QString &key)
{
    return QSslCertificate(keyFile(key)).publicKey().toDer();
}

void FakeHttpServer::onConnection()
{
    while (QTcpSocket *socket = m_server->nextPendingConnection()) {
        m_buffers.insert(socket, {});
        connect(socket, &QIODevice::readyRead, this, [this, socket] { onBytes(socket); });
        connect(socket, &QAbstractSocket::disconnected, this, [this, socket] {
            m_buffers.remove(socket);
            socket->deleteLater();
        });
        onBytes(socket);
    }
}

void FakeHttpServer::onBytes(QTcpSocket *socket)
{
    const QByteArray bytes = socket->readAll();
    m_received += bytes;
    m_buffers[socket] += bytes;
    while (m_buffers.contains(socket) && takeRequest(socket)) {
    }
}

bool FakeHttpServer::takeRequest(QTcpSocket *socket)
{
    QByteArray &buffer = m_buffers[socket];
    const qsizetype end = buffer.indexOf("\r\n\r\n");
    if (end < 0)
        return false;
    const QList<QByteArray> lines = buffer.first(end).split('\n');
    FakeRequest request;
    request.method = lines.first().split(' ').value(0);
    request.target = lines.first().split(' ').value(1);
    for (const QByteArray &line : lines.sliced(1))
        request.headers.insert(line.left(line.indexOf(':')).toLower(),
                               line.mid(line.indexOf(':') + 1).trimmed());
    const qsizetype length = request.headers.value("content-length").toLongLong();
    if (buffer.size() < end + 4 + length)
        return false;
    request.body = buffer.mid(end + 4, length);
    buffer.remove(0, end + 4 + length);
    m_requests.append(request);
    const QPointer<QTcpSocket> guard(socket);
    const std::optional<FakeAnswer> answer = m_handler ? m_handler(request) : std::nullopt;
    if (guard && !answer)
        m_held = socket;
    if (guard && answer)
        send(socket, *answer);
    return guard && m_buffers.contains(socket) && !(answer && answer->raw);
}

bool FakeHttpServer::answerHeld(const FakeAnswer &answer)
{
    if (!m_held)
        return false;
    send(m_held, answer);
    m_held = nullptr;
    return true;
}

void FakeHttpServer::send(QTcpSocket *socket, const FakeAnswer &answer)
{
    if (answer.raw) {
        socket->write(answer.body);
        socket->disconnectFromHost();
        return;
    }
    QByteArray head = "HTTP/1.1 " + QByteArray::number(answer.status) +
                      " Status\r\nContent-Length: " + QByteArray::number(answer.body.size()) + "\r\n";
    for (const QByteArray &header : answer.headers)
        head += header + "\r\n";
    socket->write(head + "\r\n" + answer.body);
}

} // namespace orrin::test
