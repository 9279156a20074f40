// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/connectionmanager.h>
#include <contract/core/eventmanager.h>
#include <contract/core/preferences.h>

#include <QString>

#include <memory>

namespace orrin {

class OsdNotificationInterface;

/*! What the root object holds. */
class OrrinSDKPrivate
{
public:
    OrrinSDKPrivate(const QString &organisation, const QString &application, OsdNotificationInterface *osd,
                    const QString &logFile);
    ~OrrinSDKPrivate();

    const QString organisation;
    const QString application;
    const QString logFile;
    OsdNotificationInterface *const osd;
    mutable Preferences preferences;
    std::unique_ptr<ConnectionManager> connectionManager;
    std::unique_ptr<EventManager> eventManager;
};

} // namespace orrin
