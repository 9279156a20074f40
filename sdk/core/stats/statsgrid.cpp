// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stats/statsgrid.h"

#include "core/stats/statspage.h"

#include <QStringView>

#include <algorithm>
#include <cmath>

namespace orrin {

namespace {

// A value that is missing for longer is not shown as if it were still there.
constexpr qsizetype HeldSlots = 64;

} // namespace

double statsRank(StatsType type, double value)
{
    if (type != StatsType::ENUM_DISK_STATUS)
        return value;
    static constexpr QStringView letters = u"GLRMXEDFN";
    const bool isLetter = value >= 0.0 && value <= 65535.0;
    const qsizetype place = isLetter ? letters.indexOf(QChar(char16_t(value))) : -1;
    return double(place < 0 ? letters.size() : place);
}

void StatsGrid::reset(const QList<StatsType> &columns, qint64 stepMs, bool keepExtremes)
{
    m_columns = columns;
    m_stepMs = std::max<qint64>(stepMs, 1);
    m_keepExtremes = keepExtremes;
    m_slots.clear();
}

void StatsGrid::addColumns(const QList<StatsType> &columns)
{
    m_columns.append(columns);
    for (Slot &slot : m_slots) {
        slot.low.resize(static_cast<std::size_t>(m_columns.size()), StatsPage::Nothing);
        if (m_keepExtremes)
            slot.high.resize(static_cast<std::size_t>(m_columns.size()), StatsPage::Nothing);
    }
}

qint64 StatsGrid::beginOf(qint64 timeMs) const
{
    const qint64 rest = timeMs % m_stepMs;
    return timeMs - (rest < 0 ? rest + m_stepMs : rest);
}

qsizetype StatsGrid::lowerBound(qint64 beginMs) const
{
    const auto found = std::ranges::lower_bound(m_slots, beginMs, {}, &Slot::beginMs);
    return static_cast<qsizetype>(found - m_slots.begin());
}

bool StatsGrid::hasSlotAt(qsizetype index, qint64 beginMs) const
{
    return index < slotCount() && slot(index).beginMs == beginMs;
}

void StatsGrid::insertSlots(qsizetype index, const QList<qint64> &beginsMs)
{
    std::vector<Slot> added;
    added.reserve(static_cast<std::size_t>(beginsMs.size()));
    const auto columns = static_cast<std::size_t>(m_columns.size());
    for (const qint64 begin : beginsMs) {
        Slot slot{begin, begin, std::vector<double>(columns, StatsPage::Nothing), {}};
        if (m_keepExtremes)
            slot.high.assign(columns, StatsPage::Nothing);
        added.push_back(std::move(slot));
    }
    m_slots.insert(m_slots.begin() + index, std::make_move_iterator(added.begin()), std::make_move_iterator(added.end()));
}

void StatsGrid::removeFront(qsizetype count)
{
    m_slots.erase(m_slots.begin(), m_slots.begin() + std::min(count, slotCount()));
}

void StatsGrid::put(qsizetype column, std::vector<double> &values, double value, bool wantsHigher) const
{
    double &old = values[static_cast<std::size_t>(column)];
    const StatsType type = m_columns.at(column);
    if (std::isnan(old) || (statsRank(type, value) > statsRank(type, old)) == wantsHigher)
        old = value;
}

void StatsGrid::add(qsizetype index, qsizetype column, qint64 timeMs, double low, double high)
{
    Slot &slot = m_slots[static_cast<std::size_t>(index)];
    slot.timeMs = std::max(timeMs, slot.beginMs);
    if (!std::isfinite(low) || !std::isfinite(high))
        return;
    if (!m_keepExtremes) {
        slot.low[static_cast<std::size_t>(column)] = high;
        return;
    }
    put(column, slot.low, low, false);
    put(column, slot.high, high, true);
}

double StatsGrid::shown(qsizetype index, qsizetype column, bool highest) const
{
    const auto place = static_cast<std::size_t>(column);
    const bool inHigh = highest && m_keepExtremes;
    for (qsizetype i = index; i >= 0 && i > index - HeldSlots; --i) {
        const Slot &each = slot(i);
        const double value = inHigh || (i < index && m_keepExtremes) ? each.high[place] : each.low[place];
        if (!std::isnan(value))
            return value;
    }
    return StatsPage::Nothing;
}

} // namespace orrin
