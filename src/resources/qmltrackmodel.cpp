// SPDX-License-Identifier: GPL-3.0-or-later
#include "resources/qmltrackmodel.h"

#include "resources/qmltrackmodel_p.h"
#include "resources/resourcelookup_p.h"
#include "resources/tablecolumns_p.h"

#include <contract/core/channel.h>
#include <contract/core/connectionmanager.h>
#include <contract/core/loginerror.h>
#include <contract/core/server.h>
#include <contract/core/servergroup.h>
#include <contract/core/track.h>

#include <QQmlEngine>

#include <array>

namespace orrin {

namespace {

enum Column {
    ServerGroupIdColumn,
    ServerIdColumn,
    ChannelIdColumn,
    TrackIdColumn,
    NameColumn,
    IsEnabledColumn,
    TypeColumn,
    ColumnCount,
};

constexpr std::array<TableColumn, ColumnCount> columns = {{
    {"serverGroupId", QT_TRANSLATE_NOOP("orrin::QmlTrackModel", "Server Group ID")},
    {"serverId", QT_TRANSLATE_NOOP("orrin::QmlTrackModel", "Server ID")},
    {"channelId", QT_TRANSLATE_NOOP("orrin::QmlTrackModel", "Channel ID")},
    {"trackId", QT_TRANSLATE_NOOP("orrin::QmlTrackModel", "Track ID")},
    {"name", QT_TRANSLATE_NOOP("orrin::QmlTrackModel", "Name")},
    {"isEnabled", QT_TRANSLATE_NOOP("orrin::QmlTrackModel", "Is enabled")},
    {"type", QT_TRANSLATE_NOOP("orrin::QmlTrackModel", "Type")},
}};

QVariant valueOf(const QmlTrack &track, int column)
{
    switch (column) {
    case ServerGroupIdColumn: return track.serverGroupId();
    case ServerIdColumn: return track.serverId();
    case ChannelIdColumn: return track.channelId();
    case TrackIdColumn: return track.trackId();
    case NameColumn: return track.name();
    case IsEnabledColumn: return track.isEnabled();
    case TypeColumn: return track.type();
    default: return invalidColumnText(column);
    }
}

ResourceIds<4> idsOf(const QmlTrack &item)
{
    return {{item.serverGroupId(), item.serverId(), item.channelId(), item.trackId()}};
}

} // namespace

QmlTrackModelPrivate::QmlTrackModelPrivate(QmlTrackModel *q)
    : ResourceModelPrivate(q, &idsOf)
{
}

void QmlTrackModelPrivate::listen()
{
    // Unlike the other models it does not follow serverReconnected(): the tracks are then the same objects.
    if (const ConnectionManager *manager = findConnectionManager()) {
        const auto refreshAt = [this, manager](auto signal) { connect(manager, signal, this, [this] { refresh(); }); };
        refreshAt(&QObject::destroyed);
        refreshAt(&ConnectionManager::loginError);
        refreshAt(&ConnectionManager::userConnectionTimedOut);
        refreshAt(&ConnectionManager::initialConnectionComplete);
        refreshAt(&ConnectionManager::serverConnected);
    }
    refresh();
}

void QmlTrackModelPrivate::setFilter(int &filter, int id, void (QmlTrackModel::*changed)())
{
    if (filter == id)
        return;
    filter = id;
    const QPointer<QmlTrackModel> model = q_ptr;
    refresh();
    if (model)
        Q_EMIT(model.data()->*changed)();
}

auto QmlTrackModelPrivate::walk() -> std::vector<Ids>
{
    std::vector<Ids> rows;
    const ConnectionManager *manager = findConnectionManager();
    if (!manager)
        return rows;
    for (const ServerGroup *group : manager->serverGroups()) {
        if (isFilteredOut(serverGroupId, group->id()))
            continue;
        for (const Server *server : group->servers()) {
            if (!isFilteredOut(serverId, server->id()))
                walkServer(group->id(), server, rows);
        }
        refreshAtEndOf(group);
    }
    return rows;
}

void QmlTrackModelPrivate::walkServer(int groupId, const Server *server, std::vector<Ids> &rows)
{
    for (const QPointer<Channel> &channel : server->channels(Server::SortBySortId)) {
        if (channel && !isFilteredOut(channelId, channel->id()))
            walkChannel(groupId, server->id(), channel, rows);
    }
    refreshAtEndOf(server);
}

void QmlTrackModelPrivate::walkChannel(int groupId, int ofServer, const Channel *channel, std::vector<Ids> &rows)
{
    for (const QPointer<Track> &track : channel->tracks()) {
        if (!track)
            continue;
        rows.push_back({{groupId, ofServer, channel->id(), track->id()}});
        refreshAtEndOf(track);
    }
    refreshAtEndOf(channel);
}

QmlTrack *QmlTrackModelPrivate::makeItem(const Ids &ids)
{
    auto *item = new QmlTrack(nullptr);
    item->setServerGroupId(ids.ids[0]);
    item->setServerId(ids.ids[1]);
    item->setChannelId(ids.ids[2]);
    item->setTrackId(ids.ids[3]);
    return item;
}

QmlTrackModel::QmlTrackModel(QObject *parent)
    : QAbstractTableModel(parent)
    , d_ptr(std::make_unique<QmlTrackModelPrivate>(this))
{
    d_func()->listen();
}

QmlTrackModel::~QmlTrackModel() = default;

int QmlTrackModel::serverGroupId() const
{
    return d_func()->serverGroupId;
}

void QmlTrackModel::setServerGroupId(int id)
{
    d_func()->setFilter(d_func()->serverGroupId, id, &QmlTrackModel::serverGroupIdChanged);
}

int QmlTrackModel::serverId() const
{
    return d_func()->serverId;
}

void QmlTrackModel::setServerId(int id)
{
    d_func()->setFilter(d_func()->serverId, id, &QmlTrackModel::serverIdChanged);
}

int QmlTrackModel::channelId() const
{
    return d_func()->channelId;
}

void QmlTrackModel::setChannelId(int id)
{
    d_func()->setFilter(d_func()->channelId, id, &QmlTrackModel::channelIdChanged);
}

int QmlTrackModel::count() const
{
    return static_cast<int>(d_func()->items.size());
}

QVariant QmlTrackModel::get(int index) const
{
    QmlTrack *item = d_func()->item(index);
    if (!item)
        return {};
    // Without a parent it would otherwise be collected as soon as QML lets go of it.
    QQmlEngine::setObjectOwnership(item, QQmlEngine::CppOwnership);
    return QVariant::fromValue(item);
}

int QmlTrackModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : count();
}

int QmlTrackModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant QmlTrackModel::data(const QModelIndex &index, int role) const
{
    const QmlTrack *item = d_func()->item(index.row());
    const std::optional<int> column = columnForRole(index.column(), role);
    if (!item || !column)
        return {};
    return valueOf(*item, *column);
}

QVariant QmlTrackModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    return columnHeading(columns, section, orientation, role, &QmlTrackModel::tr);
}

QHash<int, QByteArray> QmlTrackModel::roleNames() const
{
    return withColumnRoles(QAbstractTableModel::roleNames(), columns);
}

} // namespace orrin
