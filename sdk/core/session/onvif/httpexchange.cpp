// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/onvif/httpexchange.h"

#include "core/session/onvif/devicetrust.h"

namespace orrin {

HttpExchange::HttpExchange(QNetworkReply *reply, std::chrono::milliseconds timeout, Callback callback,
                           QObject *parent)
    : QObject(parent), m_reply(reply), m_callback(std::move(callback))
{
    reply->setReadBufferSize(MaximumBody + 1);
    connect(reply, &QIODevice::readyRead, this, &HttpExchange::onReadyRead);
    // Queued, so that the callback may delete the reply.
    connect(reply, &QNetworkReply::finished, this, &HttpExchange::onFinished, Qt::QueuedConnection);
    connect(&m_timer, &QTimer::timeout, this, [this] {
        m_timedOut = true;
        if (m_reply)
            m_reply->abort();
    });
    m_timer.setSingleShot(true);
    m_timer.start(timeout);
}

HttpExchange::~HttpExchange()
{
    if (m_done || !m_reply)
        return;
    m_reply->disconnect(this);
    m_reply->abort();
}

void HttpExchange::onReadyRead()
{
    if (m_reply->bytesAvailable() <= MaximumBody || m_tooLarge)
        return;
    m_tooLarge = true;
    m_reply->abort();
}

void HttpExchange::onFinished()
{
    if (m_done || !m_reply)
        return;
    m_done = true;
    m_timer.stop();
    TransportResult result;
    result.status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    result.failure = failure();
    if (m_reply->isOpen())
        result.body = m_reply->read(MaximumBody);
    if (m_reply->hasRawHeader("WWW-Authenticate"))
        result.challenges = m_reply->rawHeader("WWW-Authenticate").split('\n');
    result.retryAfter = qMax(0, m_reply->rawHeader("Retry-After").trimmed().toInt());
    if (result.failure != TransportResult::Failure::None)
        result.detail = m_reply->errorString();
    const Callback callback = std::move(m_callback);
    deleteLater();
    callback(result);
}

TransportResult::Failure HttpExchange::failure() const
{
    using Failure = TransportResult::Failure;
    if (DeviceTrust::hasChangedKey(m_reply))
        return Failure::KeyChanged;
    if (m_tooLarge)
        return Failure::TooLarge;
    if (m_timedOut)
        return Failure::TimedOut;
    switch (m_reply->error()) {
    case QNetworkReply::NoError:
        return Failure::None;
    case QNetworkReply::ConnectionRefusedError:
        return Failure::Refused;
    case QNetworkReply::RemoteHostClosedError:
    case QNetworkReply::TemporaryNetworkFailureError:
    case QNetworkReply::UnknownNetworkError:
        return Failure::Lost;
    case QNetworkReply::TimeoutError:
        return Failure::TimedOut;
    default:
        break;
    }
    // A status that Qt takes for an error is an answer all the same.
    return m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).isValid() ? Failure::None
                                                                                  : Failure::Other;
}

} // namespace orrin
