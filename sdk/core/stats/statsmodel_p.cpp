// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stats/statsmodel_p.h"

#include "core/resources/server_p.h"
#include "core/stats/headingfacts.h"
#include "core/stats/streammeter.h"

#include <contract/core/connectionmanager.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/server.h>

#include <QSet>
#include <QTimeZone>

#include <algorithm>
#include <cmath>
#include <limits>

namespace orrin {

using namespace std::chrono_literals;
using Limits = std::numeric_limits<double>;

namespace {

constexpr qint64 MeterIntervalMs = std::chrono::milliseconds(StreamMeter::Interval).count();
constexpr qint64 DayMs = 24LL * 3600 * 1000;
constexpr std::chrono::milliseconds ShortestTick = 2s;
constexpr std::chrono::milliseconds LongestTick = 60s;
// With the slots of the default resolution as many values as the table may hold.
constexpr qsizetype MaximumHeadings = 2048;

} // namespace

StatsModelPrivate::StatsModelPrivate(StatsModel *q)
    : q(q)
{
    connect(&loader, &StatsLoader::contentsKnown, this, &StatsModelPrivate::onContents);
    connect(&loader, &StatsLoader::failed, this, &StatsModelPrivate::onFailed);
    connect(&loader, &StatsLoader::pageRead, this, [this](const StatsPage &page) {
        error = StatsError::None;
        if (!page.times.isEmpty())
            lastReadMs = std::max(lastReadMs, page.times.last());
        applyPage(page);
    });
    connect(&loader, &StatsLoader::loaded, this, [this] {
        fullyLoaded = true;
        updateStatus();
    });
    connect(&tick, &QTimer::timeout, this, &StatsModelPrivate::onTick);
}

StatsModelPrivate::~StatsModelPrivate() = default;

void StatsModelPrivate::setServer(int group, int id)
{
    groupId = group;
    serverId = id;
    detach();
    setHeadings({}, 0);
    attach();
}

void StatsModelPrivate::setSpan(qint64 from, qint64 to)
{
    runningMs = 0;
    tick.stop();
    startSpan(from, to);
}

void StatsModelPrivate::setRunningSpan(qint64 milliseconds)
{
    runningMs = milliseconds;
    const qint64 end = now();
    startSpan(end - milliseconds, end);
    tick.start(std::clamp<std::chrono::milliseconds>(std::chrono::milliseconds(grid.stepMs()), ShortestTick, LongestTick));
}

void StatsModelPrivate::refresh()
{
    loader.retryNow();
    if (runningMs > 0)
        onTick();
}

qint64 StatsModelPrivate::now() const
{
    return QDateTime::currentMSecsSinceEpoch() + (server ? server->d_func()->clockOffsetMs : 0);
}

void StatsModelPrivate::attach()
{
    const OrrinSDK *sdk = OrrinSDK::instance();
    if (serverId < 0 || !sdk) {
        updateStatus();
        return;
    }
    ConnectionManager *manager = sdk->connectionManager();
    // A new login of the user, or a server that comes back, has another session.
    connect(manager, &ConnectionManager::serverConnected, this, [this](const Server *connected) {
        if (connected->group() && connected->id() == serverId && sdkServer() == connected) {
            detach();
            attach();
        }
    });
    server = sdkServer();
    if (!server) {
        error = StatsError::Disconnected;
        updateStatus();
        return;
    }
    serverUid = server->uniqueId();
    connect(server, &Server::reconnected, this, [this] {
        error = StatsError::None;
        updateStatus();
        loader.retryNow();
    });
    connect(server, &QObject::destroyed, this, [this] { onFailed(StatsError::Disconnected); });
    connect(&StreamMeter::instance(), &StreamMeter::sampled, this, [this] {
        if (runningMs > 0)
            addMeasured(std::max(fromMs, toMs - 2 * MeterIntervalMs), now());
    });
    loader.setSession(server->d_func()->session);
    if (hasSpan())
        startSpan(fromMs, toMs);
    updateStatus();
}

Server *StatsModelPrivate::sdkServer() const
{
    const OrrinSDK *sdk = OrrinSDK::instance();
    return sdk ? sdk->connectionManager()->server(groupId, serverId) : nullptr;
}

void StatsModelPrivate::detach()
{
    if (const OrrinSDK *sdk = OrrinSDK::instance())
        disconnect(sdk->connectionManager(), nullptr, this, nullptr);
    if (server)
        disconnect(server, nullptr, this, nullptr);
    disconnect(&StreamMeter::instance(), nullptr, this, nullptr);
    server.clear();
    serverUid = 0;
    loader.setSession(nullptr);
    error = StatsError::None;
    contentsKnown = false;
    fullyLoaded = false;
    intervalMs = 0;
}

void StatsModelPrivate::onContents(const StatsContents &contents)
{
    contentsKnown = true;
    error = StatsError::None;
    // The same list again leaves those who show it where they are.
    QStringList list = contents.headings;
    const QList<int> channels = StreamMeter::instance().channels(serverUid);
    for (const int channel : channels)
        list.append(measuredHeadings(channel));
    setHeadings(list, contents.intervalMs);
    if (hasSpan())
        startSpan(fromMs, toMs);
}

void StatsModelPrivate::onFailed(StatsError reason)
{
    // A recorder without statistics is no failure: what is measured here is shown.
    error = reason == StatsError::Unsupported ? StatsError::None : reason;
    if (reason == StatsError::Unsupported || reason == StatsError::NotPermitted) {
        contentsKnown = true;
        fullyLoaded = true;
    }
    updateStatus();
}

void StatsModelPrivate::setHeadings(const QStringList &list, qint64 interval)
{
    intervalMs = interval;
    q->beginResetModel();
    types.clear();
    columns.clear();
    QStringList known;
    for (const QString &heading : list) {
        if (columns.contains(heading) || known.size() >= MaximumHeadings)
            continue;
        columns.insert(heading, StatsModel::FirstStatistic + static_cast<int>(known.size()));
        types.append(headingFactsOf(heading).type);
        known.append(heading);
    }
    grid.reset(types, grid.stepMs(), grid.keepsExtremes());
    loneRowDoubled = false;
    q->endResetModel();
    if (headings.stringList() != known)
        headings.setStringList(known);
}

void StatsModelPrivate::addHeadings(const QStringList &added)
{
    if (added.isEmpty())
        return;
    const int first = StatsModel::FirstStatistic + static_cast<int>(types.size());
    q->beginInsertColumns({}, first, first + static_cast<int>(added.size()) - 1);
    QList<StatsType> addedTypes;
    for (const QString &heading : added) {
        columns.insert(heading, first + static_cast<int>(addedTypes.size()));
        addedTypes.append(headingFactsOf(heading).type);
    }
    types.append(addedTypes);
    grid.addColumns(addedTypes);
    q->endInsertColumns();
    const int row = headings.rowCount();
    headings.insertRows(row, static_cast<int>(added.size()));
    for (qsizetype i = 0; i < added.size(); ++i)
        headings.setData(headings.index(row + static_cast<int>(i)), added.at(i));
}

qint64 StatsModelPrivate::stepFor(qint64 spanMs, qint64 intervalMs, int slotLimit)
{
    static constexpr int Seconds[] = {1,   2,   5,    10,   20,   30,   60,    120,   300,
                                      600, 900, 1800, 3600, 7200, 10800, 21600, 43200, 86400};
    for (const int seconds : Seconds) {
        const qint64 step = seconds * 1000LL;
        if (step >= intervalMs && spanMs / step <= slotLimit)
            return step;
    }
    const qint64 days = std::max((spanMs / slotLimit + DayMs - 1) / DayMs, (intervalMs + DayMs - 1) / DayMs);
    return std::max<qint64>(days, 1) * DayMs;
}

int StatsModelPrivate::slotLimit() const
{
    const qsizetype columnCount = std::max<qsizetype>(types.size(), 1);
    return static_cast<int>(std::clamp<qsizetype>(MaximumValues / (2 * columnCount), 16, resolution));
}

void StatsModelPrivate::startSpan(qint64 from, qint64 to)
{
    const qint64 interval = intervalMs > 0 ? intervalMs : MeterIntervalMs;
    const qint64 step = stepFor(to - from, interval, slotLimit());
    q->beginResetModel();
    grid.reset(types, step, step > std::min(interval, MeterIntervalMs));
    loneRowDoubled = false;
    fromMs = from;
    toMs = to;
    lastReadMs = 0;
    fullyLoaded = contentsKnown && intervalMs == 0;
    q->endResetModel();
    Q_EMIT q->fromChanged(q->getFrom());
    Q_EMIT q->toChanged(q->getTo());
    addMeasured(from, to);
    load(from);
    updateStatus();
}

void StatsModelPrivate::load(qint64 from)
{
    if (intervalMs > 0)
        loader.load({grid.beginOf(from), toMs, grid.stepMs()});
}

void StatsModelPrivate::onTick()
{
    advance(now());
}

void StatsModelPrivate::advance(qint64 nowMs)
{
    if (runningMs <= 0)
        return;
    if (nowMs < toMs - grid.stepMs()) {
        // The clock was set back: what is shown lies in what is now the future.
        startSpan(nowMs - runningMs, nowMs);
        return;
    }
    toMs = nowMs;
    fromMs = nowMs - runningMs;
    const qsizetype gone = grid.lowerBound(grid.beginOf(fromMs));
    if (gone > 0) {
        showLoneRowOnce();
        q->beginRemoveRows({}, 0, static_cast<int>(gone) * rowsPerSlot() - 1);
        grid.removeFront(gone);
        q->endRemoveRows();
    }
    Q_EMIT q->fromChanged(q->getFrom());
    Q_EMIT q->toChanged(q->getTo());
    addMeasured(std::max(fromMs, toMs - 2 * MeterIntervalMs - grid.stepMs()), toMs);
    if (loader.isIdle())
        load(std::max(fromMs, lastReadMs));
    updateStatus();
}

void StatsModelPrivate::addMeasured(qint64 from, qint64 to)
{
    if (serverUid == 0)
        return;
    const qint64 offset = server ? server->d_func()->clockOffsetMs : 0;
    applyPage(StreamMeter::instance().samples(serverUid, from - offset, to - offset, offset));
}

void StatsModelPrivate::applyPage(const StatsPage &page)
{
    if (!hasSpan() || page.times.isEmpty())
        return;
    QStringList added;
    for (const StatsPage::Series &series : page.series) {
        if (!columns.contains(series.heading) && !added.contains(series.heading) &&
            types.size() + added.size() < MaximumHeadings)
            added.append(series.heading);
    }
    addHeadings(added);

    // A page has its times in order; whoever else makes one may not.
    QList<qsizetype> order;
    const qint64 last = runningMs > 0 ? toMs + grid.stepMs() : toMs;
    for (qsizetype i = 0; i < page.times.size(); ++i) {
        if (page.times.at(i) >= grid.beginOf(fromMs) && page.times.at(i) <= last)
            order.append(i);
    }
    std::ranges::stable_sort(order, {}, [&](qsizetype i) { return page.times.at(i); });
    for (qsizetype begin = 0; begin < order.size();)
        begin = applyRun(page, order, begin);
    updateStatus();
}

void StatsModelPrivate::showLoneRowOnce()
{
    if (!loneRowDoubled)
        return;
    q->beginRemoveRows({}, 1, 1);
    loneRowDoubled = false;
    q->endRemoveRows();
}

/*! Applies the samples from \a begin on that go together: all of those that fill a gap between two slots, or one slot that there is. Returns where the
    next ones begin. */
qsizetype StatsModelPrivate::applyRun(const StatsPage &page, const QList<qsizetype> &order, qsizetype begin)
{
    const auto slotOf = [&](qsizetype i) { return grid.beginOf(page.times.at(order.at(i))); };
    const qsizetype place = grid.lowerBound(slotOf(begin));
    const bool exists = grid.hasSlotAt(place, slotOf(begin));
    const qint64 limit = exists                     ? slotOf(begin) + 1
                         : place < grid.slotCount() ? grid.slot(place).beginMs
                                                    : std::numeric_limits<qint64>::max();
    QList<qint64> begins;
    qsizetype end = begin;
    for (; end < order.size() && slotOf(end) < limit; ++end) {
        if (begins.isEmpty() || begins.last() != slotOf(end))
            begins.append(slotOf(end));
    }
    if (!exists)
        showLoneRowOnce();
    const bool isLone = !exists && grid.slotCount() == 0 && begins.size() == 1 && rowsPerSlot() == 1;
    const int firstRow = static_cast<int>(place) * rowsPerSlot();
    const int added = static_cast<int>(begins.size()) * rowsPerSlot() + (isLone || loneRowDoubled ? 1 : 0);
    const int lastRow = firstRow + added - 1;
    if (!exists) {
        q->beginInsertRows({}, firstRow, lastRow);
        loneRowDoubled = isLone;
        grid.insertSlots(place, begins);
    }
    fill(page, order.sliced(begin, end - begin), place);
    if (exists)
        Q_EMIT q->dataChanged(q->index(firstRow, 0), q->index(lastRow, q->columnCount() - 1), {Qt::DisplayRole});
    else
        q->endInsertRows();
    return end;
}

void StatsModelPrivate::fill(const StatsPage &page, const QList<qsizetype> &samples, qsizetype firstSlot)
{
    for (const StatsPage::Series &series : page.series) {
        const int column = columns.value(series.heading, -1) - StatsModel::FirstStatistic;
        if (column < 0)
            continue;
        const QList<double> &high = series.high.isEmpty() ? series.low : series.high;
        qsizetype slot = firstSlot;
        for (const qsizetype sample : samples) {
            const qint64 time = page.times.at(sample);
            while (grid.slot(slot).beginMs < grid.beginOf(time))
                ++slot;
            if (sample < series.low.size() && sample < high.size())
                grid.add(slot, column, time, series.low.at(sample), high.at(sample));
        }
    }
}

qint64 StatsModelPrivate::rowTime(int row) const
{
    if (loneRowDoubled)
        return grid.slot(0).timeMs + row * grid.stepMs() / 2;
    const StatsGrid::Slot &slot = grid.slot(row / rowsPerSlot());
    if (!grid.keepsExtremes())
        return slot.timeMs;
    return slot.beginMs + (row % 2) * grid.stepMs() / 2;
}

QVariant StatsModelPrivate::cell(int row, int column) const
{
    if (column < StatsModel::FirstStatistic) {
        const qint64 time = rowTime(row);
        return column == 0 ? QVariant(QDateTime::fromMSecsSinceEpoch(time, QTimeZone::UTC)) : QVariant(time);
    }
    const int statistic = column - StatsModel::FirstStatistic;
    const double value = grid.shown(loneRowDoubled ? 0 : row / rowsPerSlot(), statistic, row % rowsPerSlot() == 1);
    switch (types.at(statistic)) {
    case StatsType::ENUM_SYSTEM_STATUS:
    case StatsType::ENUM_CAMERA_STATUS:
        return value >= -1.0 && value <= 65535.0 ? static_cast<int>(value) : -1;
    case StatsType::ENUM_DISK_STATUS:
        return value >= 32.0 && value < 0xd800 ? QString(QChar(static_cast<char16_t>(value))) : QStringLiteral("?");
    case StatsType::FLOAT:
    case StatsType::INTEGER:
        break;
    }
    return std::isnan(value) ? 0.0 : value;
}

std::pair<double, double> StatsModelPrivate::minMax(int column, qint64 from, qint64 to) const
{
    std::pair<double, double> range(Limits::max(), Limits::min());
    bool isEmpty = true;
    for (qsizetype i = 0; i < grid.slotCount(); ++i) {
        const StatsGrid::Slot &slot = grid.slot(i);
        if (slot.beginMs + grid.stepMs() <= from || slot.beginMs > to)
            continue;
        const auto place = static_cast<std::size_t>(column - StatsModel::FirstStatistic);
        const double low = slot.low[place];
        const double high = grid.keepsExtremes() ? slot.high[place] : low;
        if (std::isnan(low) || std::isnan(high))
            continue;
        range.first = isEmpty ? low : std::min(range.first, low);
        range.second = isEmpty ? high : std::max(range.second, high);
        isEmpty = false;
    }
    return range;
}

void StatsModelPrivate::updateStatus()
{
    StatsModel::Status next = StatsModel::Empty;
    if (!hasSpan() || (serverId < 0 && grid.slotCount() == 0))
        next = StatsModel::Idle;
    else if (grid.slotCount() > 0)
        next = StatsModel::Ready;
    else if (error == StatsError::Disconnected)
        next = StatsModel::Disconnected;
    else if (error == StatsError::NotPermitted)
        next = StatsModel::NotPermitted;
    else if (error == StatsError::Failed)
        next = StatsModel::Failed;
    else if (!contentsKnown || !fullyLoaded)
        next = StatsModel::Loading;
    if (next == status)
        return;
    status = next;
    Q_EMIT q->statusChanged(status);
}

} // namespace orrin
