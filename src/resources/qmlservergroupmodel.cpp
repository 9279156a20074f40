// SPDX-License-Identifier: GPL-3.0-or-later
#include "resources/qmlservergroupmodel.h"

#include "resources/qmlservergroupmodel_p.h"
#include "resources/resourcelookup_p.h"
#include "resources/tablecolumns_p.h"

#include <contract/core/connectionmanager.h>
#include <contract/core/loginerror.h>
#include <contract/core/servergroup.h>

#include <QQmlEngine>

#include <array>

namespace orrin {

namespace {

enum Column { ServerGroupIdColumn, HostsColumn, ColumnCount };

constexpr std::array<TableColumn, ColumnCount> columns = {{
    {"serverGroupId", QT_TRANSLATE_NOOP("orrin::QmlServerGroupModel", "Server Group ID")},
    {"hosts", QT_TRANSLATE_NOOP("orrin::QmlServerGroupModel", "Hosts")},
}};

ResourceIds<1> idsOf(const QmlServerGroup &item)
{
    return {{item.serverGroupId()}};
}

} // namespace

QmlServerGroupModelPrivate::QmlServerGroupModelPrivate(QmlServerGroupModel *q)
    : ResourceModelPrivate(q, &idsOf)
{
}

void QmlServerGroupModelPrivate::listen()
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

auto QmlServerGroupModelPrivate::walk() -> std::vector<Ids>
{
    std::vector<Ids> rows;
    const ConnectionManager *manager = findConnectionManager();
    if (!manager)
        return rows;
    for (const ServerGroup *group : manager->serverGroups()) {
        rows.push_back({{group->id()}});
        refreshAtEndOf(group);
    }
    return rows;
}

QmlServerGroup *QmlServerGroupModelPrivate::makeItem(const Ids &ids)
{
    auto *item = new QmlServerGroup(nullptr);
    item->setServerGroupId(ids.ids[0]);
    return item;
}

QmlServerGroupModel::QmlServerGroupModel(QObject *parent)
    : QAbstractTableModel(parent)
    , d_ptr(std::make_unique<QmlServerGroupModelPrivate>(this))
    , m_log("orrin::QmlServerGroupModel", this)
{
    d_func()->listen();
}

QmlServerGroupModel::~QmlServerGroupModel() = default;

int QmlServerGroupModel::count() const
{
    return static_cast<int>(d_func()->items.size());
}

QVariant QmlServerGroupModel::get(int index) const
{
    QmlServerGroup *item = d_func()->item(index);
    if (!item)
        return {};
    // Without a parent it would otherwise be collected as soon as QML lets go of it.
    QQmlEngine::setObjectOwnership(item, QQmlEngine::CppOwnership);
    return QVariant::fromValue(item);
}

int QmlServerGroupModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : count();
}

int QmlServerGroupModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant QmlServerGroupModel::data(const QModelIndex &index, int role) const
{
    const QmlServerGroup *item = d_func()->item(index.row());
    const std::optional<int> column = columnForRole(index.column(), role);
    if (!item || !column)
        return {};
    switch (*column) {
    case ServerGroupIdColumn: return item->serverGroupId();
    case HostsColumn: return item->hosts();
    default: return invalidColumnText(*column);
    }
}

QVariant QmlServerGroupModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    return columnHeading(columns, section, orientation, role, &QmlServerGroupModel::tr);
}

QHash<int, QByteArray> QmlServerGroupModel::roleNames() const
{
    return withColumnRoles(QAbstractTableModel::roleNames(), columns);
}

} // namespace orrin
