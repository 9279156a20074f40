// SPDX-License-Identifier: GPL-3.0-or-later
#include "cameralist.h"

#include <contract/core/camera.h>
#include <contract/core/connectionmanager.h>
#include <contract/core/corvaneconfig.h>
#include <contract/core/currentuser.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/server.h>
#include <contract/core/servergroup.h>

using namespace orrin;

namespace {

bool maySee(const Server &server, const Channel &channel)
{
    const QSharedPointer<CurrentUser> user = server.currentUser();
    const QSharedPointer<CorvaneConfig> config = server.config().toStrongRef();
    if (!user || !config || !config->userConfigHelper())
        return true;
    return !config->userConfigHelper()->isNotPermittedCameraForUser(user->id(), channel.uid()).second;
}

} // namespace

CameraList::CameraList(QObject *parent) : QAbstractListModel(parent)
{
    if (OrrinSDK *sdk = OrrinSDK::instance()) {
        ConnectionManager *manager = sdk->connectionManager();
        connect(manager, &ConnectionManager::serverConnected, this, &CameraList::refresh);
        connect(manager, &ConnectionManager::allServersDisconnected, this, &CameraList::refresh);
        refresh();
    }
}

int CameraList::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : count();
}

QVariant CameraList::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const Row &row = m_rows.at(index.row());
    switch (role) {
    case ServerGroupIdRole: return row.serverGroupId;
    case ServerIdRole: return row.serverId;
    case ChannelIdRole: return row.channelId;
    case SortIdRole: return row.sortId;
    case NameRole:
    case Qt::DisplayRole: return row.name;
    case ServerNameRole: return row.serverName;
    default: return {};
    }
}

QHash<int, QByteArray> CameraList::roleNames() const
{
    return {{ServerGroupIdRole, "serverGroupId"}, {ServerIdRole, "serverId"}, {ChannelIdRole, "channelId"},
            {NameRole, "name"},                   {ServerNameRole, "serverName"}, {SortIdRole, "sortId"}};
}

QList<CameraList::Row> CameraList::currentRows()
{
    QList<Row> rows;
    for (const ServerGroup *group : OrrinSDK::instance()->connectionManager()->serverGroups()) {
        for (Server *server : group->servers()) {
            connect(server, &Server::facilitiesUpdated, this, &CameraList::refresh, Qt::UniqueConnection);
            for (const QPointer<Channel> &channel : server->channels(Server::SortBySortId)) {
                if (!channel || !qobject_cast<Camera *>(channel.data()) || !channel->isEnabled() || !maySee(*server, *channel))
                    continue;
                rows.append({group->id(), server->id(), channel->id(), channel->sortId(), channel->name(), server->name()});
            }
        }
    }
    return rows;
}

void CameraList::refresh()
{
    const QList<Row> rows = currentRows();
    if (rows == m_rows)
        return;
    beginResetModel();
    m_rows = rows;
    endResetModel();
    Q_EMIT countChanged();
}
