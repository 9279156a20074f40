// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/statsmodelproxy.h"

#include "support/statsmodelproxy_p.h"
#include "support/statuscodes.h"

#include <contract/core/rangeinfofactory.h>

#include <cmath>
#include <limits>

namespace orrin {

using Limits = std::numeric_limits<double>;

StatsModelProxyPrivate::StatsModelProxyPrivate(StatsModelProxy *q)
    : q(q)
    , rangeInfo(RangeInfoFactory::create(QString()))
{
}

bool StatsModelProxyPrivate::areEqual(double first, double second)
{
    return std::abs(first - second) < Limits::epsilon();
}

std::pair<double, double> StatsModelProxyPrivate::padded(double minimum, double maximum)
{
    if (areEqual(minimum, Limits::max()))
        minimum = maximum - 100.0 > 0.0 ? maximum - 100.0 : 0.0;
    // Zero lies within the tolerance of the mark for "no sample", and is a value like any other.
    if (maximum != 0.0 && areEqual(maximum, Limits::min()))
        maximum = minimum + 100.0;
    if (areEqual(minimum, maximum)) {
        const double half = minimum / 2.0;
        return {half, maximum + half};
    }
    double span = maximum - minimum;
    if (span < 0.1)
        span = 0.1;
    else if (span < 0.5)
        span = 0.5;
    else if (span < 1.0)
        span = 1.0;
    return {minimum - span / 2.0, maximum + span / 2.0};
}

void StatsModelProxyPrivate::updateBounds()
{
    const std::optional<double> minimum = rangeInfo->minimumValue();
    const std::optional<double> maximum = rangeInfo->maximumValue();
    if (!minimum || !maximum)
        return;
    const auto [lower, upper] = padded(*minimum, *maximum);
    if (rangeInfo->lowerBoundKind() == IRangeInfo::Computed)
        rangeInfo->setLowerBound(lower);
    else if (rangeInfo->lowerBoundStartsAtZero())
        rangeInfo->setLowerBound(0.0);
    rangeInfo->setUpperBound(rangeInfo->upperBoundKind() == IRangeInfo::Computed ? upper : *maximum);
}

StatsModelProxy::StatsModelProxy(QObject *parent)
    : QSortFilterProxyModel(parent)
    , d(std::make_unique<StatsModelProxyPrivate>(this))
{
}

StatsModelProxy::~StatsModelProxy() = default;

QDateTime StatsModelProxy::from() const
{
    return d->model ? d->model->getFrom() : QDateTime();
}

QDateTime StatsModelProxy::to() const
{
    return d->model ? d->model->getTo() : QDateTime();
}

double StatsModelProxy::lowerBound() const
{
    return d->rangeInfo->lowerBound();
}

double StatsModelProxy::upperBound() const
{
    return d->rangeInfo->upperBound();
}

QString StatsModelProxy::statDescription() const
{
    return d->rangeInfo->description();
}

QString StatsModelProxy::statUnits() const
{
    return d->rangeInfo->units();
}

StatsModel::Status StatsModelProxy::status() const
{
    return d->model ? d->model->getStatus() : StatsModel::Status(0);
}

double StatsModelProxy::getMinValue() const
{
    return d->rangeInfo->minimumValue().value_or(0.0);
}

double StatsModelProxy::getMaxValue() const
{
    return d->rangeInfo->maximumValue().value_or(100.0);
}

int StatsModelProxy::columnForHeading(QString heading) const
{
    return d->model ? d->model->columnForHeading(heading) : 2;
}

void StatsModelProxy::updateRangeInfo(QString heading)
{
    if (!d->model)
        return;
    const double oldLower = lowerBound();
    const double oldUpper = upperBound();
    d->rangeInfo = RangeInfoFactory::create(heading);
    Q_EMIT statDescriptionChanged(statDescription());
    Q_EMIT statUnitsChanged(statUnits());
    const auto [minimum, maximum] = d->model->getMinMaxForHeading(heading, d->model->getFrom(), d->model->getTo());
    d->rangeInfo->setMinimumValue(minimum);
    d->rangeInfo->setMaximumValue(maximum);
    d->updateBounds();
    if (!StatsModelProxyPrivate::areEqual(oldLower, lowerBound()))
        Q_EMIT lowerBoundChanged(lowerBound());
    if (!StatsModelProxyPrivate::areEqual(oldUpper, upperBound()))
        Q_EMIT upperBoundChanged(upperBound());
}

StatsType StatsModelProxy::statsType() const
{
    return d->rangeInfo->statsType();
}

QString StatsModelProxy::getStatusDescription(StatsModel::Status status)
{
    return StatsModel::getStatusDescription(status);
}

void StatsModelProxy::setSourceModel(QAbstractItemModel *source)
{
    d->model = dynamic_cast<StatsModel *>(source);
    if (d->model) {
        connect(d->model, &StatsModel::fromChanged, this, &StatsModelProxy::handleModelFromChanged);
        connect(d->model, &StatsModel::toChanged, this, &StatsModelProxy::handleModelToChanged);
        connect(d->model, &StatsModel::statusChanged, this, &StatsModelProxy::statusChanged);
    }
    QSortFilterProxyModel::setSourceModel(source);
    Q_EMIT statusChanged(status());
}

QVariant StatsModelProxy::data(const QModelIndex &index, int role) const
{
    const QModelIndex place = mapToSource(index);
    const QVariant value = sourceModel() ? sourceModel()->data(place, role) : QVariant();
    if (index.column() < StatsModel::FirstStatistic)
        return value;
    const QString text = value.toString();
    switch (statsType()) {
    case StatsType::ENUM_SYSTEM_STATUS:
        return statuscodes::systemPlace(text.toInt());
    case StatsType::ENUM_DISK_STATUS:
        // The character behind an empty text is the null one, which no disk has.
        return statuscodes::diskPlace(*text.constData());
    case StatsType::ENUM_CAMERA_STATUS:
        return statuscodes::cameraPlace(text.toInt());
    case StatsType::FLOAT:
    case StatsType::INTEGER:
        break;
    }
    return text.toDouble();
}

bool StatsModelProxy::filterAcceptsRow(int, const QModelIndex &) const
{
    return true;
}

void StatsModelProxy::handleModelFromChanged(QDateTime from)
{
    Q_EMIT fromChanged(from);
    updateRangeInfo(d->rangeInfo->heading());
}

void StatsModelProxy::handleModelToChanged(QDateTime to)
{
    Q_EMIT toChanged(to);
    updateRangeInfo(d->rangeInfo->heading());
}

} // namespace orrin
