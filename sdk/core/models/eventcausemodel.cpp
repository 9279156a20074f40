// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/eventcausemodel.h>

#include "core/events/eventmodel_p.h"

#include <contract/core/connectionmanager.h>
#include <contract/core/eventmanager.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/server.h>

#include <QPointer>
#include <QStringList>

namespace orrin {

class EventCauseModelPrivate
{
public:
    explicit EventCauseModelPrivate(EventCauseModel *q) : q(q) {}

    /*! Appends the causes that are known by now and not in the list yet. */
    void takeCauses();

    /*! Looked up at each request, since the server may connect after the model was made. */
    unsigned long long uid() const
    {
        if (serverUid != 0 || !manager)
            return serverUid;
        for (const Server *server : manager->servers()) {
            if (server->id() == serverId)
                return server->uniqueId();
        }
        return 0;
    }

    EventCauseModel *q;
    QPointer<ConnectionManager> manager;
    int serverId = -1;
    unsigned long long serverUid = 0;
    bool withAny = false;
    QStringList causes;
    bool waits = false;
};

EventCauseModel::EventCauseModel(ConnectionManager *manager, int serverId, bool withAny, QObject *parent)
    : QAbstractListModel(parent), d(std::make_unique<EventCauseModelPrivate>(this))
{
    d->manager = manager;
    d->serverId = serverId;
    d->withAny = withAny;
}

EventCauseModel::EventCauseModel(ConnectionManager *manager, unsigned long long serverUid, bool withAny,
                                 QObject *parent)
    : QAbstractListModel(parent), d(std::make_unique<EventCauseModelPrivate>(this))
{
    d->manager = manager;
    d->serverUid = serverUid;
    d->withAny = withAny;
}

EventCauseModel::~EventCauseModel() = default;

void EventCauseModel::requestCauses()
{
    if (const OrrinSDK *sdk = OrrinSDK::instance(); sdk && !d->waits) {
        // The server may tell what it has only later.
        d->waits = true;
        const EventCauses &causes = sdk->eventManager()->liveEvents()->d_func()->causes;
        connect(&causes, &EventCauses::told, this, [this](quint64 serverUid) {
            if (serverUid == d->uid())
                d->takeCauses();
        });
    }
    QMetaObject::invokeMethod(this, [this] { d->takeCauses(); }, Qt::QueuedConnection);
}

void EventCauseModelPrivate::takeCauses()
{
    const OrrinSDK *sdk = OrrinSDK::instance();
    const unsigned long long server = uid();
    if (!sdk || server == 0)
        return;
    QStringList added;
    if (withAny && causes.isEmpty())
        added.append(QString());
    const QStringList known = sdk->eventManager()->liveEvents()->d_func()->causes.of(server);
    for (const QString &cause : known) {
        if (!causes.contains(cause))
            added.append(cause);
    }
    if (added.isEmpty())
        return;
    const int first = static_cast<int>(causes.size());
    q->beginInsertRows({}, first, first + static_cast<int>(added.size()) - 1);
    causes += added;
    q->endInsertRows();
}

int EventCauseModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(d->causes.size());
}

QVariant EventCauseModel::data(const QModelIndex &index, int role) const
{
    if (role != Qt::DisplayRole ||
        !checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    return d->causes.at(index.row());
}

} // namespace orrin
