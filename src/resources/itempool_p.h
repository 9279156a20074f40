// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QPointer>

#include <algorithm>
#include <array>
#include <compare>
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
};

/*! The items of a model before a refresh, from which the refresh takes those whose ids are still there.

    Lists mostly keep their order, so one walk over both finds nearly all; what is left on both sides is then sorted and compared.
    Ids may occur more than once: each item is given out once. */
template <class Item, std::size_t N>
class ItemPool
{
public:
    using Ids = ResourceIds<N>;
    using IdsOf = Ids (*)(const Item &item);

    ItemPool(QList<QPointer<Item>> items, IdsOf idsOf)
    {
        m_slots.reserve(static_cast<std::size_t>(items.size()));
        for (QPointer<Item> &item : items) {
            if (item)
                m_slots.push_back({idsOf(*item), std::move(item)});
        }
    }

    /*! The item for each of \a rows, which leaves the pool; null where there is none. */
    QList<QPointer<Item>> take(const std::vector<Ids> &rows)
    {
        QList<QPointer<Item>> taken(static_cast<qsizetype>(rows.size()));
        std::vector<std::size_t> missing = takeInOrder(rows, taken);
        std::erase_if(m_slots, [](const Slot &slot) { return !slot.item; });
        if (!missing.empty() && !m_slots.empty())
            takeAnywhere(rows, missing, taken);
        return taken;
    }

    /*! Deletes what was not taken. Once only. */
    void deleteRest()
    {
        for (const Slot &slot : m_slots) {
            // A receiver of the item's end may delete the model, which would delete its children once more.
            if (slot.item)
                slot.item->setParent(nullptr);
            delete slot.item.data();
        }
    }

private:
    struct Slot
    {
        Ids ids;
        QPointer<Item> item;
    };

    // Returns the rows for which nothing was found.
    std::vector<std::size_t> takeInOrder(const std::vector<Ids> &rows, QList<QPointer<Item>> &taken)
    {
        std::vector<std::size_t> missing;
        auto slot = m_slots.begin();
        for (std::size_t row = 0; row < rows.size(); ++row) {
            while (slot != m_slots.end() && slot->ids < rows[row])
                ++slot;
            if (slot != m_slots.end() && slot->ids == rows[row])
                taken[static_cast<qsizetype>(row)] = std::exchange((slot++)->item, nullptr);
            else
                missing.push_back(row);
        }
        return missing;
    }

    void takeAnywhere(const std::vector<Ids> &rows, std::vector<std::size_t> &missing, QList<QPointer<Item>> &taken)
    {
        std::stable_sort(missing.begin(), missing.end(),
                         [&rows](std::size_t a, std::size_t b) { return rows[a] < rows[b]; });
        std::stable_sort(m_slots.begin(), m_slots.end(), [](const Slot &a, const Slot &b) { return a.ids < b.ids; });
        auto slot = m_slots.begin();
        for (const std::size_t row : missing) {
            while (slot != m_slots.end() && slot->ids < rows[row])
                ++slot;
            if (slot == m_slots.end())
                return;
            if (slot->ids == rows[row])
                taken[static_cast<qsizetype>(row)] = std::exchange((slot++)->item, nullptr);
        }
    }

    std::vector<Slot> m_slots;
};

} // namespace orrin
