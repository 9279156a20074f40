// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QHttpServerResponder>
#include <QList>

#include <functional>
#include <memory>

class QJsonObject;

namespace orrin::demo {

/*!
    The answer to one HTTP request, to be sent at once or later. It can be moved, not copied; one that goes
   away unsent answers with status 503. The connection may have gone in the meantime: sending then does
   nothing.
*/
class HttpReply
{
public:
    using Header = std::pair<QByteArray, QByteArray>;

    /*! \a sent is called once, when the answer was handed over. */
    HttpReply(QHttpServerResponder &&responder, std::function<void()> sent);
    HttpReply(HttpReply &&) noexcept = default;
    HttpReply &operator=(HttpReply &&) noexcept = default;
    ~HttpReply();

    void send(int status, const QByteArray &type, const QByteArray &body, const QList<Header> &headers = {});
    void sendJson(int status, const QJsonObject &object, const QList<Header> &headers = {});

    /*! The answer is not needed any more: the connection is closed by other means. */
    void abandon();

private:
    struct State
    {
        QHttpServerResponder responder;
        std::function<void()> sent;
    };

    std::unique_ptr<State> m_state;
};

} // namespace orrin::demo
