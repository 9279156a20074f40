// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/onvif/sitewatch.h"

#include "core/session/onvif/devicelink.h"
#include "core/session/onvif/onvifnames.h"

#include <QPointer>

namespace orrin {

SiteWatch::SiteWatch(DeviceLink *link, const OnvifTimings &timings, QObject *parent)
    : QObject(parent), m_link(link), m_timings(timings)
{
    m_next.setSingleShot(true);
    connect(&m_next, &QTimer::timeout, this, &SiteWatch::ask);
}

void SiteWatch::start()
{
    m_next.start(usesExtension() ? std::chrono::milliseconds(0) : m_timings.pollInterval);
}

bool SiteWatch::usesExtension() const
{
    return m_link->hasExtension() && !m_link->sessionId.isEmpty();
}

void SiteWatch::ask()
{
    if (usesExtension())
        askForChanges();
    else
        askForTime();
}

void SiteWatch::askForChanges()
{
    const QString path = QStringLiteral("changes?session=%1&after=%2")
                             .arg(QString::fromLatin1(QUrl::toPercentEncoding(m_link->sessionId)))
                             .arg(m_revision);
    m_link->site->get(path, m_timings.changesTimeout,
                      [guard = QPointer<SiteWatch>(this)](const SiteAnswer &answer) {
                          if (guard && !guard->m_over)
                              guard->onChanges(answer);
                      });
}

void SiteWatch::onChanges(const SiteAnswer &answer)
{
    if (answer.transport.failure == TransportResult::Failure::None && answer.transport.status == 404) {
        renewSession();
        return;
    }
    if (!answer.isAnswer()) {
        onFailure(answer.transport);
        return;
    }
    m_failures = 0;
    const SiteChanges changes = SiteExtensionReader::readChanges(*answer.object);
    m_revision = changes.revision;
    m_next.start(m_timings.changesPause);
    const QPointer<SiteWatch> guard(this);
    if (changes.changed)
        Q_EMIT changed();
    for (const QString &name : changes.notices) {
        if (guard && !m_over)
            Q_EMIT notice(name);
    }
}

/*! The server forgot the session, as it may when this machine slept: what it told meanwhile is lost, so
 * everything is read again. */
void SiteWatch::renewSession()
{
    m_link->sessionId.clear();
    m_link->site->post(QStringLiteral("session"), m_timings.pollTimeout,
                       [guard = QPointer<SiteWatch>(this)](const SiteAnswer &answer) {
                           if (!guard || guard->m_over)
                               return;
                           if (!answer.isAnswer()) {
                               guard->fail(ConnectionError::ConnectionLost, QString());
                               return;
                           }
                           guard->m_link->sessionId = answer.object->value(u"session").toString();
                           guard->m_revision = 0;
                           guard->m_next.start(guard->m_timings.changesPause);
                           Q_EMIT guard->changed();
                       });
}

void SiteWatch::askForTime()
{
    SoapClient::Request request{m_link->deviceServiceUrl(), onvif::DeviceNamespace,
                                QStringLiteral("GetSystemDateAndTime")};
    request.authenticated = false;
    request.timeout = m_timings.pollTimeout;
    m_link->soap.call(request, [guard = QPointer<SiteWatch>(this)](const SoapAnswer &answer) {
        if (guard && !guard->m_over)
            guard->onTime(answer);
    });
}

void SiteWatch::onTime(const SoapAnswer &answer)
{
    // A fault is a sign of life like any other.
    if (answer.kind != SoapAnswer::Kind::Answer && answer.kind != SoapAnswer::Kind::Fault &&
        answer.transport.status != 401) {
        onFailure(answer.transport);
        return;
    }
    m_failures = 0;
    m_next.start(m_timings.pollInterval);
}

void SiteWatch::onFailure(const TransportResult &transport)
{
    using Failure = TransportResult::Failure;
    constexpr int FailuresThatEnd = 2;
    ++m_failures;
    switch (transport.failure) {
    case Failure::KeyChanged:
        fail(ConnectionError::KeyChanged, {});
        return;
    case Failure::Refused:
    case Failure::Lost:
    case Failure::Other:
        fail(ConnectionError::ConnectionLost, transport.detail);
        return;
    case Failure::TimedOut:
        if (m_failures >= FailuresThatEnd) {
            fail(ConnectionError::TimedOut, {});
            return;
        }
        break;
    case Failure::TooLarge:
    case Failure::None:
        if (transport.status == 401 || transport.status == 403) {
            fail(ConnectionError::NotAuthorised, {});
            return;
        }
        if (m_failures >= FailuresThatEnd) {
            fail(ConnectionError::ProtocolError, {});
            return;
        }
        break;
    }
    m_next.start(std::min(m_timings.reconnectFirst, m_timings.pollInterval));
}

void SiteWatch::fail(int code, const QString &detail)
{
    m_over = true;
    m_next.stop();
    Q_EMIT failed(ConnectionError(code, detail));
}

} // namespace orrin
