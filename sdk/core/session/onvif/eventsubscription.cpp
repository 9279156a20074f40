// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/onvif/eventsubscription.h"

#include "core/session/onvif/devicelink.h"
#include "core/session/onvif/eventservice.h"
#include "core/session/onvif/onvifnames.h"

#include <QCoreApplication>
#include <QPointer>

#include <algorithm>

namespace orrin {

namespace {

using Milliseconds = std::chrono::milliseconds;

const QString PullPointActions =
    QStringLiteral("http://www.onvif.org/ver10/events/wsdl/PullPointSubscription/");
const QString PortActions = QStringLiteral("http://www.onvif.org/ver10/events/wsdl/EventPortType/");
const QString ManagerActions = QStringLiteral("http://docs.oasis-open.org/wsn/bw-2/SubscriptionManager/");

QString durationText(Milliseconds time)
{
    return QStringLiteral("PT%1S").arg(std::max<qint64>(1, time.count() / 1000));
}

} // namespace

EventSubscription::EventSubscription(const DeviceLink &link, const OnvifTimings &timings)
    : m_timings(timings)
    , m_serviceUrl(link.serviceUrl(link.services.events))
    , m_soap(&m_trust, link.credentials)
    , m_again(timings.reconnectFirst, timings.reconnectLongest)
{
    m_trust.setKey(link.trust.key());
    m_soap.setClockOffset(link.soap.clockOffset());
    m_next.setSingleShot(true);
    connect(&m_next, &QTimer::timeout, this, &EventSubscription::next);
    connect(&m_again, &ReconnectTimer::due, this, &EventSubscription::subscribe);
}

EventSubscription::~EventSubscription() = default;

void EventSubscription::start()
{
    readProperties();
}

void EventSubscription::call(SoapClient::Request request, Handler handler)
{
    m_soap.call(request, [guard = QPointer<EventSubscription>(this), handler](const SoapAnswer &answer) {
        if (guard && !guard->m_ending)
            (guard.data()->*handler)(answer);
    });
}

QUrl EventSubscription::urlOf(const QString &path) const
{
    QUrl url = m_serviceUrl;
    const QUrl relative(path, QUrl::StrictMode);
    url.setPath(relative.path());
    url.setQuery(relative.query());
    return url;
}

void EventSubscription::readProperties()
{
    SoapClient::Request request{m_serviceUrl, onvif::EventsNamespace, QStringLiteral("GetEventProperties")};
    request.action = PortActions + QStringLiteral("GetEventPropertiesRequest");
    call(request, &EventSubscription::onProperties);
}

void EventSubscription::onProperties(const SoapAnswer &answer)
{
    // What events there are is good to know, but they come without it as well.
    if (answer.isAnswer()) {
        const QPointer<EventSubscription> guard(this);
        Q_EMIT causesKnown(eventservice::readCauses(answer.body));
        if (!guard)
            return;
    }
    if (answer.kind == SoapAnswer::Kind::NoAnswer)
        onFailure(answer);
    else
        subscribe();
}

void EventSubscription::subscribe()
{
    if (!m_pullPoint.isEmpty())
        return;
    SoapClient::Request request{m_serviceUrl, onvif::EventsNamespace,
                                QStringLiteral("CreatePullPointSubscription")};
    request.action = PortActions + QStringLiteral("CreatePullPointSubscriptionRequest");
    request.arguments.append(SoapClient::argument(QStringLiteral("InitialTerminationTime"),
                                                  durationText(m_timings.subscriptionLifetime),
                                                  onvif::EventsNamespace));
    call(request, &EventSubscription::onSubscribed);
}

void EventSubscription::onSubscribed(const SoapAnswer &answer)
{
    const eventservice::PullPoint point =
        answer.isAnswer() ? eventservice::readPullPoint(answer.body) : eventservice::PullPoint();
    if (point.path.isEmpty()) {
        onFailure(answer);
        return;
    }
    m_pullPoint = urlOf(point.path);
    setLifetime(point.lifetime);
    pull();
}

void EventSubscription::setLifetime(std::optional<Milliseconds> lifetime)
{
    constexpr Milliseconds Shortest{2000};
    constexpr Milliseconds Longest{3600000};
    const Milliseconds time = std::clamp(lifetime.value_or(m_timings.subscriptionLifetime), Shortest, Longest);
    m_renewal.setRemainingTime(time / 2);
    m_pullTime = std::min(m_timings.pullWait, time / 2);
}

void EventSubscription::next()
{
    if (m_renewal.hasExpired())
        renew();
    else
        pull();
}

void EventSubscription::pull()
{
    m_earliestPull.setRemainingTime(m_timings.pullPause);
    SoapClient::Request request{m_pullPoint, onvif::EventsNamespace, QStringLiteral("PullMessages")};
    request.action = PullPointActions + QStringLiteral("PullMessagesRequest");
    request.timeout = m_pullTime + m_timings.pollTimeout;
    request.arguments.append(
        SoapClient::argument(QStringLiteral("Timeout"), durationText(m_pullTime), onvif::EventsNamespace));
    request.arguments.append(SoapClient::argument(QStringLiteral("MessageLimit"),
                                                  QString::number(eventservice::MessageLimit),
                                                  onvif::EventsNamespace));
    call(request, &EventSubscription::onPulled);
}

void EventSubscription::onPulled(const SoapAnswer &answer)
{
    if (!answer.isAnswer()) {
        onFailure(answer);
        return;
    }
    m_again.reset();
    m_next.start(Milliseconds(std::max<qint64>(0, m_earliestPull.remainingTime())));
    Q_EMIT pulled(answer.body);
}

void EventSubscription::renew()
{
    SoapClient::Request request{m_pullPoint, onvif::NotificationNamespace, QStringLiteral("Renew")};
    request.action = ManagerActions + QStringLiteral("RenewRequest");
    request.arguments.append(SoapClient::argument(QStringLiteral("TerminationTime"),
                                                  durationText(m_timings.subscriptionLifetime),
                                                  onvif::NotificationNamespace));
    call(request, &EventSubscription::onRenewed);
}

void EventSubscription::onRenewed(const SoapAnswer &answer)
{
    if (!answer.isAnswer()) {
        onFailure(answer);
        return;
    }
    setLifetime(eventservice::readLifetime(answer.body));
    pull();
}

void EventSubscription::onFailure(const SoapAnswer &answer)
{
    m_pullPoint.clear();
    if (answer.isNotAuthorised() || answer.hasSubcode(u"ActionNotSupported"))
        m_again.scheduleLongest();
    else
        m_again.scheduleNext();
}

void EventSubscription::end(std::unique_ptr<EventSubscription> subscription)
{
    if (!subscription)
        return;
    EventSubscription *ending = subscription.release();
    ending->QObject::disconnect();
    ending->m_next.stop();
    ending->m_again.reset();
    ending->m_ending = true;
    if (!QCoreApplication::instance()) {
        delete ending;
        return;
    }
    // Goes with the application, should that end first.
    ending->setParent(QCoreApplication::instance());
    if (ending->m_pullPoint.isEmpty())
        ending->deleteLater();
    else
        ending->unsubscribe();
}

void EventSubscription::unsubscribe()
{
    constexpr Milliseconds Patience{2000};
    SoapClient::Request request{m_pullPoint, onvif::NotificationNamespace, QStringLiteral("Unsubscribe")};
    request.action = ManagerActions + QStringLiteral("UnsubscribeRequest");
    request.timeout = Patience;
    m_soap.call(request, [guard = QPointer<EventSubscription>(this)](const SoapAnswer &) {
        if (guard)
            guard->deleteLater();
    });
}

} // namespace orrin
