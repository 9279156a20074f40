// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/onvif/siteextensionclient.h"

#include "core/session/onvif/devicetrust.h"
#include "core/session/onvif/httpexchange.h"
#include "core/session/onvif/siteextensionreader.h"

#include <QNetworkReply>
#include <QNetworkRequest>

namespace orrin {

SiteExtensionClient::SiteExtensionClient(const QUrl &base, DeviceTrust *trust,
                                         const SharedCredentials &credentials, QObject *parent)
    : QObject(parent), m_base(base), m_trust(trust), m_credentials(credentials)
{
    m_trust->guard(&m_manager);
}

SiteExtensionClient::~SiteExtensionClient() = default;

void SiteExtensionClient::get(const QString &path, Milliseconds timeout, Callback callback)
{
    start(QByteArrayLiteral("GET"), path, timeout, std::move(callback));
}

void SiteExtensionClient::post(const QString &path, Milliseconds timeout, Callback callback)
{
    start(QByteArrayLiteral("POST"), path, timeout, std::move(callback));
}

void SiteExtensionClient::remove(const QString &path, Milliseconds timeout, Callback callback)
{
    start(QByteArrayLiteral("DELETE"), path, timeout, std::move(callback));
}

void SiteExtensionClient::start(const QByteArray &verb, const QString &path, Milliseconds timeout,
                                Callback callback)
{
    Attempt attempt;
    attempt.verb = verb;
    attempt.url = m_base.resolved(QUrl(path, QUrl::StrictMode));
    attempt.timeout = timeout;
    attempt.callback = std::move(callback);
    send(std::move(attempt));
}

void SiteExtensionClient::send(Attempt attempt)
{
    ++attempt.tries;
    QNetworkRequest request(attempt.url);
    request.setSslConfiguration(m_trust->sslConfiguration());
    request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setRawHeader("Accept", "application/json");
    QByteArray body;
    if (attempt.verb == "POST") {
        request.setRawHeader("Content-Type", "application/json");
        body = QByteArrayLiteral("{}");
    }
    attempt.hadCredentials = m_digest.hasChallenge();
    if (attempt.hadCredentials) {
        const QByteArray target =
            attempt.url.toEncoded(QUrl::RemoveScheme | QUrl::RemoveAuthority | QUrl::RemoveFragment);
        request.setRawHeader("Authorization", m_digest.authorization(attempt.verb, target, *m_credentials));
    }
    QNetworkReply *reply = m_manager.sendCustomRequest(request, attempt.verb, body);
    const Milliseconds timeout = attempt.timeout;
    new HttpExchange(
        reply, timeout,
        [this, reply, attempt = std::move(attempt)](const TransportResult &transport) {
            reply->deleteLater();
            onResult(attempt, transport);
        },
        this);
}

void SiteExtensionClient::onResult(Attempt attempt, const TransportResult &transport)
{
    constexpr int MaximumTries = 3;
    const bool answered = transport.failure == TransportResult::Failure::None;
    if (answered && transport.status == 401 && attempt.tries < MaximumTries &&
        m_digest.setChallenge(transport.challenges) &&
        (!attempt.hadCredentials || m_digest.isStale() || m_digestProven)) {
        send(std::move(attempt));
        return;
    }
    SiteAnswer answer;
    answer.transport = transport;
    answer.transport.body.clear();
    if (answered) {
        answer.object = SiteExtensionReader::parse(transport.body);
        m_digestProven |= attempt.hadCredentials && transport.status >= 200 && transport.status < 300;
    }
    if (transport.status == 403 && answer.object) {
        answer.refusal = Refusal::fromName(answer.object->value(u"refusal").toString(),
                                           answer.object->value(u"seconds").toInteger());
    }
    attempt.callback(answer);
}

} // namespace orrin
