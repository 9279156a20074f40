// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>

#include <QObject>
#include <QString>

#include <memory>

namespace orrin {

class ConnectionManager;
class EventManager;
class OrrinSDKPrivate;
class OsdNotificationInterface;
class Preferences;

/*! The root of the core library: one instance a process, on the main thread.

    The instance owns everything reached from it and lives until the process ends or shutdown() is called. */
class ORRINSDK_CORE_EXPORT OrrinSDK : public QObject
{
    Q_OBJECT
public:
    /*! Creates the instance. The names say where settings, keys and logs are kept; \a osd may be null and is borrowed for the
        life of the instance; \a logFile is the name of the log file. With an instance in place the call does nothing. */
    static void initInstance(const QString &organisation, const QString &application, OsdNotificationInterface *osd,
                             const QString &logFile);
    /*! Null before initInstance(). */
    static OrrinSDK *instance();
    /*! Ends all sessions and streams and deletes the instance; for hosts and tests that want an orderly end. */
    static void shutdown();

    ~OrrinSDK() override;

    /*! Valid for the life of the instance. */
    ConnectionManager *connectionManager() const;
    EventManager *eventManager() const;
    Preferences *preferences() const;

    QString localConfigApplicationName() const;
    QString localConfigOrganisationName() const;
    QString logFileName() const;
    OsdNotificationInterface *osdNotification() const;

private:
    explicit OrrinSDK(std::unique_ptr<OrrinSDKPrivate> d);

    std::unique_ptr<OrrinSDKPrivate> d;
};

} // namespace orrin
