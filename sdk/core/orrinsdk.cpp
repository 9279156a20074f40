// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/orrinsdk.h>

#include "core/connectionmanager_p.h"
#include "core/orrinsdk_p.h"
#include "core/session/onvif/onvifconnector.h"
#include "core/stream/processor/streamthreads.h"
#include "util/log/logdir_p.h"
#include "util/log/logmanager_p.h"

#include <contract/core/loginerror.h>
#include <contract/core/server.h>

#include <QCoreApplication>
#include <QThread>

#include <utility>

namespace orrin {

namespace {

OrrinSDK *theInstance = nullptr;

void registerMetaTypes()
{
    qRegisterMetaType<orrin::LoginError>("orrin::LoginError");
    qRegisterMetaType<orrin::Server *>("orrin::Server*");
    qRegisterMetaType<orrin::ConnectionError>("orrin::ConnectionError");
    qRegisterMetaType<orrin::StatusObject>("orrin::StatusObject");
}

} // namespace

OrrinSDKPrivate::OrrinSDKPrivate(const QString &organisation, const QString &application,
                                 OsdNotificationInterface *osd, const QString &logFile)
    : organisation(organisation)
    , application(application)
    , logFile(logFile)
    , osd(osd)
    , connectionManager(new ConnectionManager(nullptr))
    , eventManager(new EventManager(nullptr))
{
    connectionManager->d_func()->setConnector(std::make_unique<OnvifConnector>());
}

OrrinSDKPrivate::~OrrinSDKPrivate() = default;

void OrrinSDK::initInstance(const QString &organisation, const QString &application,
                            OsdNotificationInterface *osd, const QString &logFile)
{
    if (theInstance)
        return;
    Q_ASSERT(!QCoreApplication::instance() ||
             QCoreApplication::instance()->thread() == QThread::currentThread());
    registerMetaTypes();
    setLogDirNames(organisation, application);
    olog::setLogFileName(logFile);
    theInstance = new OrrinSDK(std::make_unique<OrrinSDKPrivate>(organisation, application, osd, logFile));
}

OrrinSDK *OrrinSDK::instance()
{
    return theInstance;
}

void OrrinSDK::shutdown()
{
    // Streams end before the sessions that they belong to.
    if (theInstance)
        StreamThreads::instance().shutDown();
    // Whoever hears of the end while it happens finds no instance any more.
    delete std::exchange(theInstance, nullptr);
}

OrrinSDK::OrrinSDK(std::unique_ptr<OrrinSDKPrivate> d) : d(std::move(d)) {}

OrrinSDK::~OrrinSDK() = default;

ConnectionManager *OrrinSDK::connectionManager() const
{
    return d->connectionManager.get();
}

EventManager *OrrinSDK::eventManager() const
{
    return d->eventManager.get();
}

Preferences *OrrinSDK::preferences() const
{
    return &d->preferences;
}

QString OrrinSDK::localConfigApplicationName() const
{
    return d->application;
}

QString OrrinSDK::localConfigOrganisationName() const
{
    return d->organisation;
}

QString OrrinSDK::logFileName() const
{
    return d->logFile;
}

OsdNotificationInterface *OrrinSDK::osdNotification() const
{
    return d->osd;
}

} // namespace orrin
