// SPDX-License-Identifier: GPL-3.0-or-later
#include "module/orrinsdkqml.h"

#include <contract/core/eventmanager.h>
#include <contract/core/eventspreferences.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/preferences.h>
#include <contract/core/securitypreferences.h>

#include <QPointer>
#include <QQmlContext>

namespace orrin {

namespace {

void publishRootObject(QQmlContext *context)
{
    if (!OrrinSDK::instance()) {
        OrrinSDK::initInstance(QStringLiteral("Orrinworks"), QStringLiteral("orrinviewmobile"), nullptr,
                               QStringLiteral("orrinsdk.log"));
    }
    context->setContextProperty(QStringLiteral("OrrinSDK"), OrrinSDK::instance());
}

void publishEvents(QQmlContext *context)
{
    const QPointer<OrrinSDK> sdk = OrrinSDK::instance();
    sdk->preferences()->addPreferenceGroup(QSharedPointer<PreferenceGroupInterface>(new EventsPreferences));
    sdk->preferences()->addPreferenceGroup(QSharedPointer<PreferenceGroupInterface>(new SecurityPreferences));

    // The event manager keeps the model alive, the context only borrows it.
    const QSharedPointer<EventModel> liveEvents = sdk->eventManager()->liveEvents();
    context->setContextProperty(QStringLiteral("liveEventModel"), liveEvents.data());
}

} // namespace

void initQmlContext(QQmlContext *context)
{
    publishRootObject(context);
    publishEvents(context);
}

} // namespace orrin
