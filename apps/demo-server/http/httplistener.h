// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "http/connectionguard.h"
#include "http/httpreply.h"
#include "http/httprequest.h"

#include <QAbstractHttpServer>

#include <functional>
#include <vector>

namespace orrin::demo {

/*!
    One HTTPS port. Each complete request goes to a handler, which answers now or later; requests above 1 MiB
   are answered with 413. It can be told to leave requests unanswered or to answer with garbage. GUI thread.
*/
class HttpListener : public QAbstractHttpServer
{
    Q_OBJECT

public:
    enum class Mode { Normal, Silent, Garbage };
    using Handler = std::function<void(const HttpRequest &, HttpReply)>;

    static constexpr qsizetype MaximumBody = 1024 * 1024;

    explicit HttpListener(Handler handler, QObject *parent = nullptr);
    ~HttpListener() override;

    /*! Starts to listen; port 0 is any free one. False, with \a error set, when that fails. */
    bool listen(const QHostAddress &address, quint16 port, QString *error);

    /*! Stops listening and closes all connections. */
    void close();

    /*! The port in use, 0 when not listening. */
    quint16 port() const;

    /*! The key and certificate from now on. Open connections are closed, as they would be by a device that
     * starts anew. */
    void setConfiguration(const QSslConfiguration &configuration);

    /*! Leaving Mode::Silent closes the connections that were kept waiting. */
    void setMode(Mode mode);

protected:
    bool handleRequest(const QHttpServerRequest &request, QHttpServerResponder &responder) override;
    void missingHandler(const QHttpServerRequest &request, QHttpServerResponder &responder) override;

private:
    ConnectionGuard *m_guard;
    Handler m_handler;
    Mode m_mode = Mode::Normal;
    std::vector<HttpReply> m_unanswered;
};

} // namespace orrin::demo
