// SPDX-License-Identifier: GPL-3.0-or-later
#include "http/httplistener.h"

#include <QHttpServerRequest>
#include <QPointer>
#include <QRandomGenerator>

namespace orrin::demo {

using namespace Qt::StringLiterals;

HttpListener::HttpListener(Handler handler, QObject *parent)
    : QAbstractHttpServer(parent), m_guard(new ConnectionGuard), m_handler(std::move(handler))
{
}

HttpListener::~HttpListener()
{
    close();
    if (!m_guard->parent())
        delete m_guard;
}

bool HttpListener::listen(const QHostAddress &address, quint16 port, QString *error)
{
    if (!m_guard->listen(address, port)) {
        *error = u"cannot listen for HTTPS on %1 port %2: %3"_s.arg(address.toString(), QString::number(port),
                                                                    m_guard->errorString());
        return false;
    }
    // Binding wants a server that listens, and is done once: the same server listens again later.
    if (!m_guard->parent() && !bind(m_guard)) {
        *error = u"cannot serve HTTPS on port %1"_s.arg(port);
        return false;
    }
    return true;
}

void HttpListener::close()
{
    m_guard->close();
    m_guard->dropAll();
    for (HttpReply &reply : m_unanswered)
        reply.abandon();
    m_unanswered.clear();
}

quint16 HttpListener::port() const
{
    return m_guard->isListening() ? m_guard->serverPort() : 0;
}

void HttpListener::setConfiguration(const QSslConfiguration &configuration)
{
    m_guard->setSslConfiguration(configuration);
    m_guard->dropAll();
}

void HttpListener::setMode(Mode mode)
{
    if (m_mode == Mode::Silent && mode != Mode::Silent) {
        m_guard->dropAll();
        for (HttpReply &reply : m_unanswered)
            reply.abandon();
        m_unanswered.clear();
    }
    m_mode = mode;
}

bool HttpListener::handleRequest(const QHttpServerRequest &request, QHttpServerResponder &responder)
{
    const quint16 peerPort = request.remotePort();
    m_guard->requestTaken(peerPort);
    HttpReply reply(std::move(responder), [guard = QPointer<ConnectionGuard>(m_guard), peerPort] {
        if (guard)
            guard->requestAnswered(peerPort);
    });
    if (m_mode == Mode::Silent) {
        if (m_unanswered.size() < ConnectionGuard::MaximumConnections)
            m_unanswered.push_back(std::move(reply));
        return true;
    }
    if (m_mode == Mode::Garbage) {
        QByteArray bytes(2000, Qt::Uninitialized);
        QRandomGenerator::global()->generate(bytes.begin(), bytes.end());
        m_guard->writeRaw(peerPort, bytes);
        reply.abandon();
        return true;
    }
    if (request.body().size() > MaximumBody) {
        reply.send(413, "text/plain", "The request is too large.\n");
        return true;
    }
    m_handler(HttpRequest(request), std::move(reply));
    return true;
}

void HttpListener::missingHandler(const QHttpServerRequest &, QHttpServerResponder &responder)
{
    responder.write(QHttpServerResponder::StatusCode::NotFound);
}

} // namespace orrin::demo
