// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/connectionerror.h>
#include <contract/core/export.h>
#include <contract/core/statusobject.h>

#include <QObject>
#include <QPointer>
#include <QSharedPointer>
#include <QString>
#include <QTimeZone>
#include <QWeakPointer>

#include <memory>
#include <vector>

namespace orrin {

class Camera;
class Channel;
class Connection;
class CorvaneConfig;
class CurrentUser;
class ServerGroup;
class ServerPrivate;
class ServerProfile;

/*! One recording server that the user logged in to. Main thread; owned by the ConnectionManager.

    Stays when the connection is lost; its channels keep their objects by id across reconnects. */
class ORRINSDK_CORE_EXPORT Server : public QObject
{
    Q_OBJECT
public:
    /*! Order of channels(). */
    enum SortBy : int { SortById = 0, SortBySortId = 1, SortByName = 2 };

    explicit Server(std::unique_ptr<ServerPrivate> d, QObject *parent = nullptr);
    ~Server() override;

    /*! The server's uid, which identifies it across groups. */
    virtual unsigned long long uniqueId() const;
    /*! Null when absent. */
    virtual Channel *channelById(int id) const;
    /*! Null until the server told its version. Owned by the server, replaced when the version changes. */
    virtual ServerProfile *serverProfile() const;

    /*! Unique inside the group. */
    int id() const;
    QString name() const;
    /*! The address that the connection goes to, numeric; empty before the first connection. */
    QString IP() const;
    /*! The host as the user or the group names it. */
    QString host() const;
    int port() const;
    ServerGroup *group() const;
    bool isOnline() const;
    /*! The zone of the server's clock; UTC while it is not known. */
    QTimeZone timeZone() const;

    std::vector<QPointer<Channel>> channels(SortBy order) const;
    std::vector<QPointer<Camera>> cameras() const;

    /*! What the server tells of its recordings and its clock; null while it is not connected. Borrowed for the call. */
    Connection *connection() const;

    /*! The user of this session; null when nobody is logged in. */
    QSharedPointer<CurrentUser> currentUser() const;
    /*! The server's configuration, which may be gone. */
    QWeakPointer<CorvaneConfig> config() const;

    ServerPrivate *d_func() const { return d.get(); }

Q_SIGNALS:
    void offline(unsigned long long uid);
    void reconnected(unsigned long long uid);
    void statusChange(unsigned long long uid, const orrin::StatusObject &status);
    void userConnectionTimedOut(unsigned long long uid);
    void restartRequested(unsigned long long uid);
    void rebootMachineRequested(unsigned long long uid);
    void shutdownRequested(unsigned long long uid);
    void error(const unsigned long long &uid, const orrin::ConnectionError &error);
    /*! Channels, tracks, rights or names changed. */
    void facilitiesUpdated(unsigned long long uid);

private:
    std::unique_ptr<ServerPrivate> d;
};

} // namespace orrin
