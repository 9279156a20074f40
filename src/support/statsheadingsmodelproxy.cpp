// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/statsheadingsmodelproxy.h"

namespace orrin {

using namespace Qt::StringLiterals;

namespace {

bool isSystemFigure(const QString &heading)
{
    return heading == "CPU%"_L1 || heading == "ntp_ms"_L1 || heading == "stratum"_L1 ||
           (heading.startsWith("cpu"_L1) && heading.endsWith('%'_L1));
}

bool isNetworkInterface(const QString &heading)
{
    return heading.endsWith("_tx"_L1) || heading.endsWith("_rx"_L1) || heading.endsWith("_err"_L1) ||
           heading.endsWith("_drop"_L1);
}

bool isDisk(const QString &heading)
{
    return heading.startsWith("Disk_"_L1) || heading.startsWith("Use%_"_L1) || heading.startsWith("Temp_"_L1) ||
           heading.startsWith("WriteRate_"_L1);
}

// "C3", and what is counted of the camera: "C3rx", "C3rj", "C3ij".
bool isCamera(const QString &heading)
{
    if (!heading.startsWith('C'_L1))
        return false;
    QString number = heading.sliced(1);
    number.remove("rx"_L1).remove("rj"_L1).remove("ij"_L1);
    bool isNumber = false;
    number.toInt(&isNumber, 10);
    return isNumber;
}

// "C3t1b", "C3t1d", "C3t1r".
bool isTrack(const QString &heading)
{
    if (!heading.startsWith('C'_L1) ||
        !(heading.endsWith('b'_L1) || heading.endsWith('d'_L1) || heading.endsWith('r'_L1)))
        return false;
    QString rest = heading.chopped(1);
    rest.remove('b'_L1).remove('d'_L1).remove('r'_L1);
    const qsizetype place = rest.indexOf('t'_L1);
    return place > 0 && place < rest.size() - 1;
}

bool isSensor(const QString &heading)
{
    return heading.endsWith("/C"_L1) || heading.endsWith("/V"_L1) || heading.endsWith("/W"_L1) ||
           heading.contains("FAN"_L1) || heading.contains("PSU"_L1);
}

int weightOf(const QString &heading)
{
    if (heading == "Status"_L1)
        return 1;
    if (heading == "UsedMB"_L1)
        return 2;
    if (heading == "FreeMB"_L1)
        return 3;
    if (isSystemFigure(heading))
        return 10;
    if (isNetworkInterface(heading))
        return 20;
    if (isDisk(heading))
        return 30;
    if (isCamera(heading))
        return 40;
    if (isTrack(heading))
        return 50;
    return isSensor(heading) ? 60 : 100;
}

} // namespace

StatsHeadingsModelProxy::StatsHeadingsModelProxy(QObject *parent)
    : QSortFilterProxyModel(parent)
{
}

StatsHeadingsModelProxy::~StatsHeadingsModelProxy() = default;

void StatsHeadingsModelProxy::setMatchString(const QString &text)
{
    m_matchString = text;
    invalidateFilter();
}

bool StatsHeadingsModelProxy::filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const
{
    if (m_matchString.isEmpty())
        return true;
    const QAbstractItemModel *source = sourceModel();
    const QString heading = source->data(source->index(sourceRow, 0, sourceParent), Qt::DisplayRole).toString();
    return heading.toLower().contains(m_matchString.toLower());
}

bool StatsHeadingsModelProxy::lessThan(const QModelIndex &left, const QModelIndex &right) const
{
    const QString first = left.data().toString();
    const QString second = right.data().toString();
    const int firstWeight = weightOf(first);
    const int secondWeight = weightOf(second);
    if (firstWeight != secondWeight)
        return firstWeight < secondWeight;
    return first.toLower() < second.toLower();
}

} // namespace orrin
