// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/statsmodel.h>

#include <QList>
#include <QTimeZone>

/*! A table of statistics whose every answer a test sets. */
class FakeStatsModel : public orrin::StatsModel
{
    Q_OBJECT
public:
    using orrin::StatsModel::StatsModel;

    QDateTime getFrom() const override { return from; }
    QDateTime getTo() const override { return to; }
    Status getStatus() const override { return status; }
    int columnForHeading(const QString &heading) const override { return headings.indexOf(heading) + 2; }
    std::pair<double, double> getMinMaxForHeading(const QString &heading, std::optional<QDateTime> first,
                                                  std::optional<QDateTime> last) const override
    {
        asked.append(heading);
        askedFrom = first.value_or(QDateTime());
        askedTo = last.value_or(QDateTime());
        return range;
    }

    int rowCount(const QModelIndex &parent = {}) const override { return parent.isValid() ? 0 : int(rows.size()); }
    int columnCount(const QModelIndex &parent = {}) const override { return parent.isValid() ? 0 : int(headings.size()) + 2; }
    QVariant data(const QModelIndex &index, int role) const override
    {
        return role == Qt::DisplayRole ? rows.value(index.row()).value(index.column()) : QVariant();
    }

    void setRows(const QList<QVariantList> &list)
    {
        beginResetModel();
        rows = list;
        endResetModel();
    }
    void setStatus(Status next)
    {
        status = next;
        Q_EMIT statusChanged(next);
    }
    void setSpanOfTest(const QDateTime &first, const QDateTime &last)
    {
        from = first;
        to = last;
        Q_EMIT fromChanged(first);
        Q_EMIT toChanged(last);
    }

    QDateTime from{QDate(2026, 1, 2), QTime(3, 0), QTimeZone::UTC};
    QDateTime to{QDate(2026, 1, 2), QTime(4, 0), QTimeZone::UTC};
    Status status = Idle;
    QStringList headings;
    QList<QVariantList> rows;
    std::pair<double, double> range{0, 40};
    mutable QStringList asked;
    mutable QDateTime askedFrom;
    mutable QDateTime askedTo;
};
