// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "resources/qmlserver.h"

#include <QPointer>

namespace orrin {

class CurrentUser;
class Server;
class ServerProfile;

class QmlServerPrivate
{
public:
    explicit QmlServerPrivate(QmlServer *q);

    /*! The server, or null; a server other than the last one found is listened to and announced before this returns. */
    Server *server();
    const ServerProfile *profile();
    QPointer<CurrentUser> user();
    void update();

    QPointer<QmlServer> q_ptr;
    QPointer<Server> cachedServer;
    int serverGroupId = -1;
    int serverId = -1;

private:
    void listenTo(Server *server);
};

} // namespace orrin
