// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/onvif/devicetrust.h"
#include "core/session/onvif/onviftimings.h"
#include "core/session/onvif/reconnecttimer.h"
#include "core/session/onvif/soapclient.h"

#include <QDeadlineTimer>
#include <QObject>
#include <QStringList>
#include <QTimer>

#include <memory>

namespace orrin {

class DeviceLink;

/*! The subscription to the events of one device by a pull point. Main thread.

    It reads what events the device has, subscribes, and then pulls: each request waits at the device until
    something happens. Pulls begin at least OnvifTimings::pullPause apart, so that many events come in few
    answers. The subscription is renewed when half of its time is over. One that the device lost or never gave
    is tried again with back-off. It has clients of its own and outlives the link that it was made of. */
class EventSubscription : public QObject
{
    Q_OBJECT
public:
    EventSubscription(const DeviceLink &link, const OnvifTimings &timings);
    ~EventSubscription() override;

    void start();

    /*! Tells the device that nobody listens any more, and deletes the subscription once that is done, two
        seconds later at most. */
    static void end(std::unique_ptr<EventSubscription> subscription);

Q_SIGNALS:
    /*! An answer of the device to a pull, to be read with eventservice::readMessages(). */
    void pulled(const orrin::XmlElement &answer);
    /*! The causes of the events that the device has, in words. */
    void causesKnown(const QStringList &causes);

private:
    using Handler = void (EventSubscription::*)(const SoapAnswer &);

    void readProperties();
    void subscribe();
    void next();
    void pull();
    void renew();
    void unsubscribe();
    void onProperties(const SoapAnswer &answer);
    void onSubscribed(const SoapAnswer &answer);
    void onPulled(const SoapAnswer &answer);
    void onRenewed(const SoapAnswer &answer);
    void onFailure(const SoapAnswer &answer);
    void setLifetime(std::optional<std::chrono::milliseconds> lifetime);
    void call(SoapClient::Request request, Handler handler);
    QUrl urlOf(const QString &path) const;

    const OnvifTimings m_timings;
    const QUrl m_serviceUrl;
    DeviceTrust m_trust;
    SoapClient m_soap;
    ReconnectTimer m_again;
    QTimer m_next;
    QUrl m_pullPoint; // empty while there is none
    std::chrono::milliseconds m_pullTime{};
    QDeadlineTimer m_renewal;
    QDeadlineTimer m_earliestPull;
    bool m_ending = false;
};

} // namespace orrin
