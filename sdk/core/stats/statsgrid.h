// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>
#include <contract/core/statstype.h>

#include <QList>

#include <deque>
#include <vector>

namespace orrin {

/*! The samples of a span of time in slots of equal length. One thread at a time.

    A slot holds, for each column, the lowest and the highest value that fell into it, or with keepsExtremes() off the newest alone. Slots without a sample
    take no memory. Samples may come in any order and more than once; those outside the span are for the caller to drop. */
class ORRINSDK_CORE_EXPORT StatsGrid
{
public:
    struct Slot
    {
        qint64 beginMs = 0;
        qint64 timeMs = 0; //!< of the first sample in it
        std::vector<double> low;
        std::vector<double> high; //!< empty with keepsExtremes() off
    };

    /*! Forgets everything. \a stepMs is the length of a slot, above 0. */
    void reset(const QList<StatsType> &columns, qint64 stepMs, bool keepExtremes);
    /*! More columns at the end, empty so far. */
    void addColumns(const QList<StatsType> &columns);

    qint64 stepMs() const { return m_stepMs; }
    bool keepsExtremes() const { return m_keepExtremes; }
    qsizetype columnCount() const { return m_columns.size(); }
    qsizetype slotCount() const { return static_cast<qsizetype>(m_slots.size()); }
    const Slot &slot(qsizetype index) const { return m_slots[static_cast<std::size_t>(index)]; }
    qint64 beginOf(qint64 timeMs) const;

    /*! The first slot that begins at \a beginMs or later. */
    qsizetype lowerBound(qint64 beginMs) const;
    bool hasSlotAt(qsizetype index, qint64 beginMs) const;
    /*! Slots that begin at \a beginsMs, ascending, in front of the slot at \a index. */
    void insertSlots(qsizetype index, const QList<qint64> &beginsMs);
    void removeFront(qsizetype count);
    void clear() { m_slots.clear(); }

    /*! Adds a sample to the slot at \a index; not a number and infinite are no sample. */
    void add(qsizetype index, qsizetype column, qint64 timeMs, double low, double high);

    /*! The value that a row shows: the column's lowest or highest in the slot, or what it was in one of the 64 slots before; NaN when there is none. */
    double shown(qsizetype index, qsizetype column, bool highest) const;

private:
    void put(qsizetype column, std::vector<double> &values, double value, bool wantsHigher) const;

    QList<StatsType> m_columns;
    std::deque<Slot> m_slots;
    qint64 m_stepMs = 1000;
    bool m_keepExtremes = false;
};

/*! Puts the letters of disk states in the order in which they are worse; numbers keep theirs. */
ORRINSDK_CORE_EXPORT double statsRank(StatsType type, double value);

} // namespace orrin
