// SPDX-License-Identifier: GPL-3.0-or-later
#include "resources/qmlservermodel.h"

#include "resources/qmlservermodel_p.h"
#include "resources/resourcelookup_p.h"
#include "resources/tablecolumns_p.h"

#include <contract/core/connectionmanager.h>
#include <contract/core/loginerror.h>
#include <contract/core/server.h>
#include <contract/core/servergroup.h>

#include <QQmlEngine>

#include <array>

namespace orrin {

namespace {

enum Column {
    ServerGroupIdColumn,
    ServerIdColumn,
    UniqueIdColumn,
    NameColumn,
    IpColumn,
    HostColumn,
    CameraCountColumn,
    VersionColumn,
    MajorVersionColumn,
    MinorVersionColumn,
    BuildVersionColumn,
    UserIdColumn,
    UserNameColumn,
    UserLevelColumn,
    ColumnCount,
};

// "Buid version" is how the heading has always read; translations are keyed by it.
constexpr std::array<TableColumn, ColumnCount> columns = {{
    {"serverGroupId", QT_TRANSLATE_NOOP("orrin::QmlServerModel", "Server Group ID")},
    {"serverId", QT_TRANSLATE_NOOP("orrin::QmlServerModel", "Server ID")},
    {"uniqueId", QT_TRANSLATE_NOOP("orrin::QmlServerModel", "Server Unique ID")},
    {"name", QT_TRANSLATE_NOOP("orrin::QmlServerModel", "Name")},
    {"ip", QT_TRANSLATE_NOOP("orrin::QmlServerModel", "IP")},
    {"host", QT_TRANSLATE_NOOP("orrin::QmlServerModel", "Host")},
    {"cameraCount", QT_TRANSLATE_NOOP("orrin::QmlServerModel", "Camera count")},
    {"version", QT_TRANSLATE_NOOP("orrin::QmlServerModel", "Version")},
    {"majorVersion", QT_TRANSLATE_NOOP("orrin::QmlServerModel", "Major version")},
    {"minorVersion", QT_TRANSLATE_NOOP("orrin::QmlServerModel", "Minor version")},
    {"buildVersion", QT_TRANSLATE_NOOP("orrin::QmlServerModel", "Buid version")},
    {"userId", QT_TRANSLATE_NOOP("orrin::QmlServerModel", "User ID")},
    {"userName", QT_TRANSLATE_NOOP("orrin::QmlServerModel", "Username")},
    {"userLevel", QT_TRANSLATE_NOOP("orrin::QmlServerModel", "User level")},
}};

QVariant valueOf(const QmlServer &server, int column)
{
    switch (column) {
    case ServerGroupIdColumn: return server.serverGroupId();
    case ServerIdColumn: return server.serverId();
    case UniqueIdColumn: return server.uniqueId();
    case NameColumn: return server.name();
    case IpColumn: return server.ip();
    case HostColumn: return server.host();
    case CameraCountColumn: return server.cameraCount();
    case VersionColumn: return server.version();
    case MajorVersionColumn: return server.majorVersion();
    case MinorVersionColumn: return server.minorVersion();
    case BuildVersionColumn: return server.buildVersion();
    case UserIdColumn: return server.userId();
    case UserNameColumn: return server.userName();
    case UserLevelColumn: return server.userLevel();
    // Unlike the other models, which speak of a column.
    default: return QStringLiteral("Invalid role: %1").arg(column);
    }
}

ResourceIds<2> idsOf(const QmlServer &item)
{
    return {{item.serverGroupId(), item.serverId()}};
}

} // namespace

QmlServerModelPrivate::QmlServerModelPrivate(QmlServerModel *q)
    : ResourceModelPrivate(q, &idsOf)
{
}

void QmlServerModelPrivate::listen()
{
    if (const ConnectionManager *manager = findConnectionManager()) {
        const auto refreshAt = [this, manager](auto signal) { connect(manager, signal, this, [this] { refresh(); }); };
        refreshAt(&QObject::destroyed);
        refreshAt(&ConnectionManager::loginError);
        refreshAt(&ConnectionManager::userConnectionTimedOut);
        refreshAt(&ConnectionManager::initialConnectionComplete);
        refreshAt(&ConnectionManager::serverConnected);
        refreshAt(&ConnectionManager::serverReconnected);
    }
    refresh();
}

auto QmlServerModelPrivate::walk() -> std::vector<Ids>
{
    std::vector<Ids> rows;
    const ConnectionManager *manager = findConnectionManager();
    if (!manager)
        return rows;
    for (const ServerGroup *group : manager->serverGroups()) {
        if (isFilteredOut(serverGroupId, group->id()))
            continue;
        for (const Server *server : group->servers()) {
            rows.push_back({{group->id(), server->id()}});
            refreshAtEndOf(server);
        }
        refreshAtEndOf(group);
    }
    return rows;
}

QmlServer *QmlServerModelPrivate::makeItem(const Ids &ids)
{
    auto *item = new QmlServer(nullptr);
    item->setServerGroupId(ids.ids[0]);
    item->setServerId(ids.ids[1]);
    return item;
}

QmlServerModel::QmlServerModel(QObject *parent)
    : QAbstractTableModel(parent)
    , d_ptr(std::make_unique<QmlServerModelPrivate>(this))
    , m_log("orrin::QmlServerModel", this)
{
    d_func()->listen();
}

QmlServerModel::~QmlServerModel() = default;

int QmlServerModel::serverGroupId() const
{
    return d_func()->serverGroupId;
}

void QmlServerModel::setServerGroupId(int id)
{
    if (d_func()->serverGroupId == id)
        return;
    d_func()->serverGroupId = id;
    const QPointer<QmlServerModel> alive = this;
    d_func()->refresh();
    if (alive)
        Q_EMIT serverGroupIdChanged();
}

int QmlServerModel::count() const
{
    return static_cast<int>(d_func()->items.size());
}

QVariant QmlServerModel::get(int index) const
{
    QmlServer *item = d_func()->item(index);
    if (!item)
        return {};
    // Without a parent it would otherwise be collected as soon as QML lets go of it.
    QQmlEngine::setObjectOwnership(item, QQmlEngine::CppOwnership);
    return QVariant::fromValue(item);
}

int QmlServerModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : count();
}

int QmlServerModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant QmlServerModel::data(const QModelIndex &index, int role) const
{
    const QmlServer *item = d_func()->item(index.row());
    const std::optional<int> column = columnForRole(index.column(), role);
    if (!item || !column)
        return {};
    return valueOf(*item, *column);
}

QVariant QmlServerModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    return columnHeading(columns, section, orientation, role, &QmlServerModel::tr);
}

QHash<int, QByteArray> QmlServerModel::roleNames() const
{
    return withColumnRoles(QAbstractTableModel::roleNames(), columns);
}

} // namespace orrin
