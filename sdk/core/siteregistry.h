// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/sitedescription.h"

#include <contract/core/export.h>
#include <contract/util/corvaneurl.h>

#include <QHash>
#include <QPointer>
#include <QString>

#include <map>
#include <vector>

namespace orrin {

class Server;
class ServerGroup;

/*! The groups and servers that are known, with an index for each way in which they are looked up. Main
    thread.

    Objects are children of \a owner and are removed with deleteLater(), so that whoever holds one inside the
    call still may. */
class ORRINSDK_CORE_EXPORT SiteRegistry
{
public:
    explicit SiteRegistry(QObject *owner);

    std::vector<ServerGroup *> groups() const;
    std::vector<Server *> servers() const;
    ServerGroup *group(int id) const;
    Server *serverByUid(quint64 uid) const;

    /*! The server that \a site describes, made with its group when it is new; reached at \a url. The
        description itself is not applied. A server that now belongs to another group is made anew there. */
    Server *bind(const SiteDescription &site, const CorvaneUrl &url);

    /*! Removes \a server, and its group when that was the last one. */
    void remove(Server *server);

    /*! Removes everything; returns the number of servers there were. */
    unsigned clear();

private:
    ServerGroup *groupFor(const SiteDescription &site);

    QObject *m_owner;
    int m_lastGroupId = 0;
    std::map<int, ServerGroup *> m_groups;
    QHash<QString, int> m_groupIds; // kept over removal, so that a group that returns has its old id
    QHash<quint64, Server *> m_servers;
};

} // namespace orrin
