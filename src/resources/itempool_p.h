// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QList>
#include <QPointer>

#include <array>
#include <cstddef>
#include <utility>
#include <vector>

namespace orrin {

/*! The ids by which a model knows its items, in the order group, server, channel, track. */
template <std::size_t N>
struct ResourceIds
{
    std::array<int, N> ids;

    friend auto operator<=>(const ResourceIds &, const ResourceIds &) = default;
    friend size_t qHash(const ResourceIds &key, size_t seed = 0) noexcept
    {
        return qHashRange(key.ids.begin(), key.ids.end(), seed);
    }
};

/*! The items of a model before a refresh, from which the refresh takes those whose ids are still there.

    Lists mostly keep their order, so the slot after the last one taken is tried first; an index over all slots is made only when that
    guess fails. Ids may occur more than once: each slot is given out once. */
template <class Item, std::size_t N>
class ItemPool
{
public:
    using Ids = ResourceIds<N>;
    using IdsOf = Ids (*)(const Item &item);

    ItemPool(const QList<QPointer<Item>> &items, IdsOf idsOf)
        : m_items(items.cbegin(), items.cend())
        , m_idsOf(idsOf)
    {
    }

    /*! The item of \a ids, which leaves the pool; null when there is none. */
    QPointer<Item> take(const Ids &ids)
    {
        const qsizetype slot = find(ids);
        if (slot < 0)
            return nullptr;
        m_guess = slot + 1;
        return std::exchange(m_items[static_cast<std::size_t>(slot)], nullptr);
    }

    /*! Deletes what was not taken. */
    void deleteRest()
    {
        for (const QPointer<Item> &item : std::exchange(m_items, {})) {
            // A receiver of the item's end may delete the model, which would delete its children once more.
            if (item)
                item->setParent(nullptr);
            delete item.data();
        }
    }

private:
    bool holds(qsizetype slot, const Ids &ids) const
    {
        const QPointer<Item> &item = m_items[static_cast<std::size_t>(slot)];
        return item && m_idsOf(*item) == ids;
    }

    qsizetype find(const Ids &ids)
    {
        const auto size = static_cast<qsizetype>(m_items.size());
        if (m_guess < size && holds(m_guess, ids))
            return m_guess;
        if (!m_indexed)
            makeIndex();
        const auto first = m_first.find(ids);
        if (first == m_first.end())
            return -1;
        // Slots that were given out by a guess are passed by once and forgotten.
        while (*first >= 0 && !m_items[static_cast<std::size_t>(*first)])
            *first = m_next[static_cast<std::size_t>(*first)];
        return *first;
    }

    void makeIndex()
    {
        m_indexed = true;
        m_first.reserve(static_cast<qsizetype>(m_items.size()));
        m_next.assign(m_items.size(), -1);
        for (std::size_t slot = m_items.size(); slot-- > 0;) {
            if (!m_items[slot])
                continue;
            const Ids ids = m_idsOf(*m_items[slot]);
            m_next[slot] = m_first.value(ids, -1);
            m_first.insert(ids, static_cast<qsizetype>(slot));
        }
    }

    std::vector<QPointer<Item>> m_items;
    IdsOf m_idsOf;
    qsizetype m_guess = 0;
    bool m_indexed = false;
    QHash<Ids, qsizetype> m_first;
    std::vector<qsizetype> m_next; // the next slot with the same ids
};

} // namespace orrin
