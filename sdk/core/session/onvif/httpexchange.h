// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/onvif/transportresult.h"

#include <QNetworkReply>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include <chrono>
#include <functional>

namespace orrin {

/*! Watches one HTTP reply: bounds its size and its time, and tells what became of it. Main thread.

    The reply stays whoever's it is, but must outlive the exchange or be told by its own end; the exchange
    deletes itself by the event loop after it has called back, once. Deleting the exchange before that ends the
    reply without a call. */
class HttpExchange : public QObject
{
    Q_OBJECT
public:
    /*! Bytes of a body that are read; what is longer is refused. */
    static constexpr qint64 MaximumBody = 4 * 1024 * 1024;

    using Callback = std::function<void(const TransportResult &)>;

    HttpExchange(QNetworkReply *reply, std::chrono::milliseconds timeout, Callback callback, QObject *parent);
    ~HttpExchange() override;

private:
    void onReadyRead();
    void onFinished();
    TransportResult::Failure failure() const;

    QPointer<QNetworkReply> m_reply;
    QTimer m_timer;
    Callback m_callback;
    bool m_tooLarge = false;
    bool m_timedOut = false;
    bool m_done = false;
};

} // namespace orrin
