// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/serverlistmodel.h>

#include <contract/core/connectionmanager.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/server.h>
#include <contract/core/servergroup.h>

#include <QPointer>

#include <algorithm>
#include <vector>

namespace orrin {

class ServerListModelPrivate
{
public:
    ServerListModelPrivate(ServerListModel *q, ServerGroup *group) : q(q), group(group) {}

    void watchServer(Server *server)
    {
        // Until then the group does not know it any more.
        QObject::connect(server, &QObject::destroyed, q, [this] { reset(); });
        QObject::connect(server, &Server::facilitiesUpdated, q,
                         [this](unsigned long long uid) { updateRow(uid); });
    }

    void reset()
    {
        q->beginResetModel();
        servers.clear();
        if (group) {
            for (Server *server : group->servers())
                servers.emplace_back(server);
        }
        q->endResetModel();
    }

    void addServer(Server *server)
    {
        const bool isKnown = std::find(servers.begin(), servers.end(), server) != servers.end();
        if (!group || server->group() != group || isKnown)
            return;
        const auto place =
            std::find_if(servers.begin(), servers.end(), [server](const QPointer<Server> &other) {
                return other && other->id() > server->id();
            });
        const int row = static_cast<int>(place - servers.begin());
        q->beginInsertRows({}, row, row);
        servers.emplace(place, server);
        q->endInsertRows();
        watchServer(server);
    }

    void updateRow(unsigned long long uid)
    {
        for (std::size_t row = 0; row < servers.size(); ++row) {
            if (servers[row] && servers[row]->uniqueId() == uid) {
                const QModelIndex index = q->index(static_cast<int>(row));
                Q_EMIT q->dataChanged(index, index);
            }
        }
    }

    ServerListModel *q;
    QPointer<ServerGroup> group;
    std::vector<QPointer<Server>> servers;
};

ServerListModel::ServerListModel(ServerGroup *group, QObject *parent)
    : QAbstractListModel(parent), d(std::make_unique<ServerListModelPrivate>(this, group))
{
    d->reset();
    for (const QPointer<Server> &server : d->servers)
        d->watchServer(server);
    if (group)
        connect(group, &QObject::destroyed, this, [this] { d->reset(); });
    if (const OrrinSDK *sdk = OrrinSDK::instance()) {
        connect(sdk->connectionManager(), &ConnectionManager::serverConnected, this,
                [this](Server *server) { d->addServer(server); });
    }
}

ServerListModel::~ServerListModel() = default;

int ServerListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(d->servers.size());
}

QVariant ServerListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const Server *server = d->servers[static_cast<std::size_t>(index.row())];
    if (!server)
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return server->name();
    case UidRole:
        return server->uniqueId();
    default:
        return {};
    }
}

QHash<int, QByteArray> ServerListModel::roleNames() const
{
    QHash<int, QByteArray> names = QAbstractListModel::roleNames();
    names.insert(UidRole, QByteArrayLiteral("uid"));
    return names;
}

} // namespace orrin
