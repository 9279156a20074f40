// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>
#include <contract/util/corvaneurl.h>
#include <contract/util/servergid.h>

#include <QObject>
#include <QString>

#include <memory>
#include <vector>

namespace orrin {

class ConnectionManagerPrivate;
class LoginError;
class Server;
class ServerGroup;

/*! Logs in to servers and holds the groups and servers that are known. Main thread.

    Owns all groups, servers, channels and tracks. A server that is lost keeps its objects and is tried again; its objects go
    with disconnectFromAll(), or when the server leaves its group. */
class ORRINSDK_CORE_EXPORT ConnectionManager : public QObject
{
    Q_OBJECT
public:
    ~ConnectionManager() override;

    /*! Starts a login and returns its number, from 1. \a asGroup asks for all servers of that server's group. The outcome comes
        through the signals, always by the event loop, within 10 seconds: serverConnected() for each server, then
        initialConnectionComplete(), or loginError(). The password is kept in memory for reconnecting and nowhere else. */
    int connectToServer(const QString &user, const QString &password, const CorvaneUrl &url, bool asGroup);

    /*! Ends all sessions, also those still connecting, and removes all groups; allServersDisconnected() follows by the
        event loop, also when there was none. */
    void disconnectFromAll();

    std::vector<ServerGroup *> serverGroups() const;
    std::vector<Server *> servers() const;

    /*! Null when absent. The pointer is borrowed: hold it in a QPointer beyond the call. */
    ServerGroup *serverGroup(int id) const;
    Server *server(int group, int server) const;

    /*! The uid for a (group, server) pair, 0 when absent. */
    unsigned long long serverUidFromGid(ServerGID gid) const;

    /*! For the core library itself. */
    ConnectionManagerPrivate *d_func() const { return d.get(); }

Q_SIGNALS:
    void loginError(const orrin::LoginError &error);
    /*! The session of user \a user of server \a server (low 32 bits of the uid) was ended by the server for lack of activity. */
    void userConnectionTimedOut(unsigned server, unsigned user);
    void serverConnected(orrin::Server *server);
    void serverOffline(orrin::Server *server);
    void serverReconnected(orrin::Server *server);
    /*! \a count is the number of servers that were disconnected. */
    void allServersDisconnected(unsigned count);
    void initialConnectionComplete();

private:
    friend class OrrinSDK;
    friend class OrrinSDKPrivate;
    explicit ConnectionManager(QObject *parent);

    std::unique_ptr<ConnectionManagerPrivate> d;
};

} // namespace orrin
