// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/session.h"
#include "core/session/sitedescription.h"

#include <contract/core/corvaneconfig.h>
#include <contract/core/export.h>
#include <contract/core/serverprofile.h>

#include <QHash>
#include <QPointer>
#include <QSharedPointer>

#include <array>
#include <map>
#include <memory>
#include <vector>

namespace orrin {

class Channel;
class CurrentUser;
class Server;
class ServerGroup;

/*! What a Server holds. Channels are children of the server and keep their objects by id while their kind and
 * sort id stay. */
class ORRINSDK_CORE_EXPORT ServerPrivate
{
public:
    /*! Takes over \a site, which describes this very server; true when anything that a user of the server can
        see changed. The caller emits the signals. */
    bool apply(Server *q, const SiteDescription &site);

    /*! The server leaves: its channels become invalid, and there is no session and no user any more. */
    void retire();

    quint64 uid = 0;
    int id = 0;
    QString name;
    QString address;
    QString host;
    int port = 0;
    bool online = false;
    QTimeZone timeZone = QTimeZone::utc();
    qint64 clockOffsetMs = 0;
    QPointer<ServerGroup> group;
    QPointer<Session> session;
    std::unique_ptr<ServerProfile> profile;
    QSharedPointer<CurrentUser> user;
    QSharedPointer<CorvaneConfig> config;

    QHash<int, Channel *> channelsById;
    /*! The channels by each Server::SortBy; made anew after each change. */
    std::array<std::vector<QPointer<Channel>>, 3> sorted;

private:
    bool applyChannels(Server *q, const SiteDescription &site);
    bool applyUser(const SiteDescription &site);
    void sortChannels();
};

} // namespace orrin
