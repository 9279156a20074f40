// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "resources/itempool_p.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>

#include <cstddef>
#include <utility>
#include <vector>

namespace orrin {

/*! What the table models of resources share: a list of item objects, and the refresh that rebuilds it whole by a model reset while
    the objects whose ids are still there survive. Main thread.

    Model lets this class reach its protected reset functions. */
template <class Model, class Item, std::size_t N>
class ResourceModelPrivate : public QObject
{
public:
    /*! Connections of one resource's end to refresh(). Every refresh adds one; without an end, each departure would double the
        number of refreshes that the next one causes. */
    static constexpr int ConnectionLimit = 16;

    using Ids = ResourceIds<N>;
    using IdsOf = typename ItemPool<Item, N>::IdsOf;

    ResourceModelPrivate(Model *q, IdsOf idsOf)
        : q_ptr(q)
        , m_idsOf(idsOf)
    {
    }

    /*! The item of that row; null out of range and when the item has gone. */
    Item *item(int row) const
    {
        return row >= 0 && row < items.size() ? items.at(row).data() : nullptr;
    }

    void refresh()
    {
        // A receiver of the reset, or of an item's end, may ask for a refresh: it follows when this one is through.
        if (m_refreshing) {
            m_refreshAgain = true;
            return;
        }
        const QPointer<QObject> alive = this;
        do {
            m_refreshAgain = false;
            m_refreshing = true;
            q_ptr->beginResetModel();
            if (!alive)
                return;
            const std::vector<Ids> rows = walk();
            ItemPool<Item, N> pool(std::exchange(items, {}), m_idsOf);
            QList<QPointer<Item>> next = pool.take(rows);
            pool.deleteRest();
            if (!alive)
                return;
            // After the old ones are gone, so that the new ones take their place in memory.
            for (std::size_t row = 0; row < rows.size(); ++row) {
                QPointer<Item> &item = next[static_cast<qsizetype>(row)];
                if (!item)
                    item = makeItem(rows[row]);
            }
            items = std::move(next);
            m_refreshing = false;
            q_ptr->endResetModel();
        } while (alive && m_refreshAgain);
    }

    QPointer<Model> q_ptr;
    QList<QPointer<Item>> items;

protected:
    /*! The ids of all rows in their order, as the core has them now; listens to the end of each resource. */
    virtual std::vector<Ids> walk() = 0;
    /*! A new item with its ids set. */
    virtual Item *makeItem(const Ids &ids) = 0;

    static bool isFilteredOut(int filter, int id) { return filter >= 0 && filter != id; }

    void refreshAtEndOf(const QObject *resource)
    {
        int &connections = m_connections[resource];
        if (connections >= ConnectionLimit)
            return;
        if (connections++ == 0) {
            connect(resource, &QObject::destroyed, this,
                    [this](const QObject *gone) { m_connections.remove(gone); });
        }
        connect(resource, &QObject::destroyed, this, [this] { refresh(); });
    }

private:
    IdsOf m_idsOf;
    bool m_refreshing = false;
    bool m_refreshAgain = false;
    QHash<const QObject *, int> m_connections;
};

} // namespace orrin
