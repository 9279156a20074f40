// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/statsmodel.h>

#include "core/stats/statsmodel_p.h"

#include <QTimeZone>

#include <algorithm>
#include <limits>

namespace orrin {

namespace {

// The years 1 to 9999; further away lies nothing that a chart can name.
constexpr qint64 FirstMoment = -62135596800000;
constexpr qint64 LastMoment = 253402300799999;
constexpr int FewestSlots = 16;
constexpr int MostSlots = 16384;

QDateTime dateTimeOf(qint64 timeMs, bool isSet)
{
    return isSet ? QDateTime::fromMSecsSinceEpoch(timeMs, QTimeZone::UTC) : QDateTime();
}

} // namespace

StatsModel::StatsModel(QObject *parent)
    : QAbstractTableModel(parent)
    , d(std::make_unique<StatsModelPrivate>(this))
{
}

StatsModel::~StatsModel() = default;

QDateTime StatsModel::getFrom() const
{
    return dateTimeOf(d->fromMs, d->toMs > d->fromMs);
}

QDateTime StatsModel::getTo() const
{
    return dateTimeOf(d->toMs, d->toMs > d->fromMs);
}

StatsModel::Status StatsModel::getStatus() const
{
    return d->status;
}

QString StatsModel::getStatusDescription(Status status)
{
    switch (status) {
    case Idle:
        return tr("No statistics are asked for");
    case Loading:
        return tr("Loading statistics…");
    case Ready:
        return tr("Ready");
    case Empty:
        return tr("There are no statistics for this time");
    case Disconnected:
        return tr("The server is not connected");
    case NotPermitted:
        return tr("You may not see the statistics of this server");
    case Failed:
        return tr("The server does not answer");
    }
    return tr("Unknown");
}

int StatsModel::columnForHeading(const QString &heading) const
{
    return d->columns.value(heading, FirstStatistic);
}

std::pair<double, double> StatsModel::getMinMaxForHeading(const QString &heading, std::optional<QDateTime> from,
                                                          std::optional<QDateTime> to) const
{
    using Limits = std::numeric_limits<qint64>;
    const int column = d->columns.value(heading, -1);
    if (column < 0)
        return {std::numeric_limits<double>::max(), std::numeric_limits<double>::min()};
    const qint64 first = from && from->isValid() ? from->toMSecsSinceEpoch() : Limits::min();
    const qint64 last = to && to->isValid() ? to->toMSecsSinceEpoch() : Limits::max();
    return d->minMax(column, first, last);
}

QAbstractItemModel *StatsModel::headings() const
{
    return &d->headings;
}

void StatsModel::setServer(int serverGroupId, int serverId)
{
    d->setServer(serverGroupId, serverId);
}

void StatsModel::setSpan(const QDateTime &from, const QDateTime &to)
{
    if (!from.isValid() || !to.isValid())
        return;
    const qint64 first = std::clamp(from.toMSecsSinceEpoch(), FirstMoment, LastMoment);
    const qint64 last = std::clamp(to.toMSecsSinceEpoch(), FirstMoment, LastMoment);
    if (last > first)
        d->setSpan(first, last);
}

void StatsModel::setRunningSpan(qlonglong milliseconds)
{
    if (milliseconds > 0)
        d->setRunningSpan(std::min<qint64>(milliseconds, LastMoment));
}

bool StatsModel::isRunning() const
{
    return d->runningMs > 0;
}

void StatsModel::refresh()
{
    d->refresh();
}

int StatsModel::resolution() const
{
    return d->resolution;
}

void StatsModel::setResolution(int count)
{
    d->resolution = std::clamp(count, FewestSlots, MostSlots);
}

int StatsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : d->rowCount();
}

int StatsModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : FirstStatistic + static_cast<int>(d->types.size());
}

QVariant StatsModel::data(const QModelIndex &index, int role) const
{
    if (role != Qt::DisplayRole || !checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    return d->cell(index.row(), index.column());
}

QVariant StatsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section >= columnCount())
        return {};
    switch (section) {
    case 0:
        return tr("Time");
    case 1:
        return tr("Time (ms)");
    default:
        return d->headings.stringList().value(section - FirstStatistic);
    }
}

} // namespace orrin
