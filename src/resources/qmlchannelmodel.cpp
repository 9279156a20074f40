// SPDX-License-Identifier: GPL-3.0-or-later
#include "resources/qmlchannelmodel.h"

#include "resources/qmlchannelmodel_p.h"
#include "resources/resourcelookup_p.h"
#include "resources/tablecolumns_p.h"

#include <contract/core/channel.h>
#include <contract/core/connectionmanager.h>
#include <contract/core/corvaneconfig.h>
#include <contract/core/currentuser.h>
#include <contract/core/loginerror.h>
#include <contract/core/server.h>
#include <contract/core/servergroup.h>
#include <contract/core/userconfighelper.h>
#include <contract/util/channeluid.h>

#include <algorithm>
#include <array>

namespace orrin {

namespace {

enum Column {
    ServerGroupIdColumn,
    ServerIdColumn,
    ServerUidColumn,
    ChannelIdColumn,
    SortIdColumn,
    ChannelUniqueIdColumn,
    NameColumn,
    ServerNameColumn,
    IsValidColumn,
    IsEnabledColumn,
    IsCameraColumn,
    IsAudioColumn,
    IsTalkbackColumn,
    IsDataColumn,
    HasPtzfColumn,
    TrackCountColumn,
    ChannelUniqueIdMetaColumn,
    ColumnCount,
};

constexpr std::array<TableColumn, ColumnCount> columns = {{
    {"serverGroupId", QT_TRANSLATE_NOOP("orrin::QmlChannelModel", "Server Group ID")},
    {"serverId", QT_TRANSLATE_NOOP("orrin::QmlChannelModel", "Server ID")},
    {"serverUid", QT_TRANSLATE_NOOP("orrin::QmlChannelModel", "Server UID")},
    {"channelId", QT_TRANSLATE_NOOP("orrin::QmlChannelModel", "Channel ID")},
    {"sortId", QT_TRANSLATE_NOOP("orrin::QmlChannelModel", "Sort ID")},
    {"channelUniqueId", QT_TRANSLATE_NOOP("orrin::QmlChannelModel", "Channel Unique ID")},
    {"name", QT_TRANSLATE_NOOP("orrin::QmlChannelModel", "Name")},
    {"serverName", QT_TRANSLATE_NOOP("orrin::QmlChannelModel", "Server Name")},
    {"isValid", QT_TRANSLATE_NOOP("orrin::QmlChannelModel", "Is Valid")},
    {"isEnabled", QT_TRANSLATE_NOOP("orrin::QmlChannelModel", "Is Enabled")},
    {"isCamera", QT_TRANSLATE_NOOP("orrin::QmlChannelModel", "Is Camera")},
    {"isAudio", QT_TRANSLATE_NOOP("orrin::QmlChannelModel", "Is Audio")},
    {"isTalkback", QT_TRANSLATE_NOOP("orrin::QmlChannelModel", "Is Talkback")},
    {"isData", QT_TRANSLATE_NOOP("orrin::QmlChannelModel", "Is Data")},
    {"hasPtzf", QT_TRANSLATE_NOOP("orrin::QmlChannelModel", "Has PTZF")},
    {"trackCount", QT_TRANSLATE_NOOP("orrin::QmlChannelModel", "Track Count")},
    {"channelUniqueIdMeta", QT_TRANSLATE_NOOP("orrin::QmlChannelModel", "Channel Unique ID MetaType")},
}};

bool mayView(const QmlChannel &channel)
{
    const CurrentUser *user = CurrentUser::currentUser(channel.serverGroupId(), channel.serverId());
    const ConnectionManager *manager = findConnectionManager();
    const Server *server = manager ? manager->server(channel.serverGroupId(), channel.serverId()) : nullptr;
    if (!user || !server)
        return false;
    const QSharedPointer<CorvaneConfig> config = server->config().toStrongRef();
    if (!config)
        return false;
    const std::unique_ptr<UserConfigHelper> &helper = config->userConfigHelper();
    // Without a helper nothing is known of restrictions, so nobody is restricted.
    if (!helper)
        return true;
    const ChannelUID uid(server->uniqueId(), channel.channelId());
    return !helper->isNotPermittedCameraForUser(user->id(), uid).second;
}

bool maySteer(const QmlChannel &channel)
{
    // The right is that of the group's first login, whatever the channel's own server is.
    const CurrentUser *user = CurrentUser::currentUser(channel.serverGroupId(), CurrentUser::FirstLogin);
    return user && user->isPermitted(SSPermission(SSPermission::Ptzf));
}

QVariant valueOf(const QmlChannel &channel, int column)
{
    switch (column) {
    case ServerGroupIdColumn: return channel.serverGroupId();
    case ServerIdColumn: return channel.serverId();
    case ServerUidColumn: return serverUIDToString(channel.channelUid().serverUid);
    case ChannelIdColumn: return channel.channelId();
    case SortIdColumn: return channel.sortId();
    case ChannelUniqueIdColumn: return channel.channelUniqueId();
    case NameColumn: return channel.name();
    case ServerNameColumn: return channel.serverName();
    case IsValidColumn: return channel.isValid();
    case IsEnabledColumn: return mayView(channel) && channel.isEnabled();
    case IsCameraColumn: return channel.isCamera();
    case IsAudioColumn: return channel.isAudio();
    case IsTalkbackColumn: return channel.isTalkback();
    case IsDataColumn: return channel.isData();
    case HasPtzfColumn: return maySteer(channel) && channel.hasPtzf();
    case TrackCountColumn: return channel.trackCount();
    case ChannelUniqueIdMetaColumn: return channel.channelUid().toString();
    default: return invalidColumnText(column);
    }
}

ResourceIds<3> idsOf(const QmlChannel &item)
{
    return {{item.serverGroupId(), item.serverId(), item.channelId()}};
}

} // namespace

QmlChannelModelPrivate::QmlChannelModelPrivate(QmlChannelModel *q)
    : ResourceModelPrivate(q, &idsOf)
{
}

void QmlChannelModelPrivate::listen()
{
    if (const ConnectionManager *manager = findConnectionManager()) {
        for (const Server *server : manager->servers())
            refreshAtFacilitiesOf(server);

        const auto refreshAt = [this, manager](auto signal) { connect(manager, signal, this, [this] { refresh(); }); };
        refreshAt(&QObject::destroyed);
        refreshAt(&ConnectionManager::loginError);
        refreshAt(&ConnectionManager::userConnectionTimedOut);
        refreshAt(&ConnectionManager::initialConnectionComplete);
        refreshAt(&ConnectionManager::serverConnected);
        connect(manager, &ConnectionManager::serverConnected, this, &QmlChannelModelPrivate::refreshAtFacilitiesOf);
        refreshAt(&ConnectionManager::serverOffline);
        refreshAt(&ConnectionManager::serverReconnected);
        connect(manager, &ConnectionManager::serverReconnected, this, &QmlChannelModelPrivate::refreshAtFacilitiesOf);
    }
    refresh();
}

void QmlChannelModelPrivate::refreshAtFacilitiesOf(const Server *server)
{
    // Unique, so that repeated reconnects do not stack up refreshes.
    if (server)
        connect(server, &Server::facilitiesUpdated, this, &QmlChannelModelPrivate::refresh, Qt::UniqueConnection);
}

auto QmlChannelModelPrivate::walk() -> std::vector<Ids>
{
    std::vector<Ids> rows;
    const ConnectionManager *manager = findConnectionManager();
    if (!manager)
        return rows;
    rows.reserve(static_cast<std::size_t>(items.size()));
    for (const ServerGroup *group : manager->serverGroups()) {
        if (isFilteredOut(serverGroupId, group->id()))
            continue;
        for (const Server *server : group->servers()) {
            if (!isFilteredOut(serverId, server->id()))
                walkServer(group->id(), server, rows);
        }
        refreshAtEndOf(group);
    }
    // By channel id and not by sort id, which is for display.
    if (!std::is_sorted(rows.cbegin(), rows.cend()))
        std::sort(rows.begin(), rows.end());
    return rows;
}

void QmlChannelModelPrivate::walkServer(int groupId, const Server *server, std::vector<Ids> &rows)
{
    for (const QPointer<Channel> &channel : server->channels(Server::SortBySortId)) {
        if (channel)
            rows.push_back({{groupId, server->id(), channel->id()}});
    }
    refreshAtEndOf(server);
}

QmlChannel *QmlChannelModelPrivate::makeItem(const Ids &ids)
{
    auto *item = new QmlChannel(q_ptr);
    item->setServerGroupId(ids.ids[0]);
    item->setServerId(ids.ids[1]);
    item->setChannelId(ids.ids[2]);
    return item;
}

QmlChannelModel::QmlChannelModel(QObject *parent)
    : QAbstractTableModel(parent)
    , d_ptr(std::make_unique<QmlChannelModelPrivate>(this))
    , m_log("orrin::QmlChannelModel", this)
{
    d_func()->listen();
}

QmlChannelModel::~QmlChannelModel() = default;

int QmlChannelModel::count() const
{
    return static_cast<int>(d_func()->items.size());
}

QVariant QmlChannelModel::get(int index) const
{
    QmlChannel *item = d_func()->item(index);
    return item ? QVariant::fromValue(item) : QVariant();
}

int QmlChannelModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : count();
}

int QmlChannelModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant QmlChannelModel::data(const QModelIndex &index, int role) const
{
    const QmlChannel *item = d_func()->item(index.row());
    const std::optional<int> column = columnForRole(index.column(), role);
    if (!item || !column)
        return {};
    return valueOf(*item, *column);
}

QVariant QmlChannelModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    return columnHeading(columns, section, orientation, role, &QmlChannelModel::tr);
}

QHash<int, QByteArray> QmlChannelModel::roleNames() const
{
    return withColumnRoles(QAbstractTableModel::roleNames(), columns);
}

} // namespace orrin
