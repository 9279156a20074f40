// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stats/streammeter.h"

#include "core/stats/headingfacts.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QPointer>

#include <algorithm>
#include <map>
#include <utility>

namespace orrin {

namespace {

QPointer<StreamMeter> theMeter;

} // namespace

StreamMeter &StreamMeter::instance()
{
    // Goes with the application, whose event loop it needs.
    if (!theMeter)
        theMeter = new StreamMeter(QCoreApplication::instance());
    return *theMeter;
}

StreamMeter::StreamMeter(QObject *parent)
    : QObject(parent)
{
    m_timer.setInterval(Interval);
    connect(&m_timer, &QTimer::timeout, this, &StreamMeter::onTimer);
}

StreamMeter::~StreamMeter() = default;

std::shared_ptr<StreamCounters> StreamMeter::counters(ChannelUID channel)
{
    std::shared_ptr<Record> &entry = m_records[channel];
    if (!entry) {
        entry = std::make_shared<Record>();
        entry->counters = std::make_shared<StreamCounters>();
    }
    if (!m_timer.isActive()) {
        m_timer.start();
        m_sinceSample.start();
    }
    return entry->counters;
}

std::shared_ptr<StreamCounters> StreamMeter::countStream(ChannelUID channel)
{
    const std::shared_ptr<StreamCounters> shared = counters(channel);
    shared->streams.fetch_add(1, std::memory_order_relaxed);
    return std::shared_ptr<StreamCounters>(shared.get(), [shared](StreamCounters *counted) {
        counted->streams.fetch_sub(1, std::memory_order_relaxed);
    });
}

QList<int> StreamMeter::channels(quint64 serverUid) const
{
    QList<int> ids;
    for (auto it = m_records.cbegin(); it != m_records.cend(); ++it) {
        if (it.key().serverUid == serverUid && !it.value()->samples.empty())
            ids.append(it.key().channelId);
    }
    std::ranges::sort(ids);
    return ids;
}

StatsPage StreamMeter::samples(quint64 serverUid, qint64 fromMs, qint64 toMs, qint64 offsetMs) const
{
    // Cameras are sampled together, so most times are shared.
    std::map<qint64, qsizetype> places;
    const QList<int> ids = channels(serverUid);
    const auto isInside = [&](const Sample &sample) { return sample.timeMs >= fromMs && sample.timeMs <= toMs; };
    for (const int id : ids) {
        for (const Sample &sample : m_records.value({serverUid, id})->samples) {
            if (isInside(sample))
                places.emplace(sample.timeMs, 0);
        }
    }
    StatsPage page;
    for (auto &[time, place] : places) {
        place = page.times.size();
        page.times.append(time + offsetMs);
    }
    for (const int id : ids) {
        const QStringList headings = measuredHeadings(id);
        const qsizetype first = page.series.size();
        for (const QString &heading : headings)
            page.series.append({heading, QList<double>(page.times.size(), StatsPage::Nothing), {}});
        for (const Sample &sample : m_records.value({serverUid, id})->samples) {
            if (!isInside(sample))
                continue;
            for (std::size_t i = 0; i < sample.values.size(); ++i)
                page.series[first + qsizetype(i)].low[places[sample.timeMs]] = double(sample.values[i]);
        }
    }
    return page;
}

void StreamMeter::onTimer()
{
    sample(QDateTime::currentMSecsSinceEpoch(), m_sinceSample.restart());
}

void StreamMeter::sample(qint64 nowMs, qint64 elapsedMs)
{
    const double seconds = std::max(double(elapsedMs), 1.0) / 1000.0;
    bool any = false;
    for (const auto &entry : std::as_const(m_records)) {
        if (entry->counters->streams.load(std::memory_order_relaxed) <= 0)
            continue;
        record(*entry, nowMs, seconds);
        any = true;
    }
    forget(nowMs);
    if (any)
        Q_EMIT sampled();
}

void StreamMeter::record(Record &record, qint64 nowMs, double seconds)
{
    const StreamCounters &counters = *record.counters;
    const auto advance = [](quint64 &last, const std::atomic<quint64> &counter) {
        const quint64 now = counter.load(std::memory_order_relaxed);
        return double(now - std::exchange(last, now));
    };
    const double pictures = advance(record.pictures, counters.pictures);
    const double bytes = advance(record.bytes, counters.bytes);
    const double lost = advance(record.packetsLost, counters.packetsLost);
    const double reconnects = advance(record.reconnects, counters.reconnects);
    const qint64 delay = counters.delayMs.load(std::memory_order_relaxed);
    // A clock that was set back begins a time that was there already: what is newer by the old one would never end.
    while (!record.samples.empty() && record.samples.back().timeMs >= nowMs)
        record.samples.pop_back();
    record.samples.push_back({nowMs,
                              {float(pictures / seconds), float(bytes * 8.0 / 1000.0 / seconds), pictures > 0 ? float(delay) : 0.0F,
                               float(lost / seconds), float(reconnects)}});
    if (qsizetype(record.samples.size()) > MaximumSamples)
        record.samples.pop_front();
}

void StreamMeter::forget(qint64 nowMs)
{
    const qint64 oldest = nowMs - qint64(MaximumSamples) * std::chrono::milliseconds(Interval).count();
    const auto isQuiet = [](const Record &record) { return record.counters->streams.load(std::memory_order_relaxed) <= 0; };
    m_records.removeIf([&](const auto &entry) {
        return isQuiet(**entry) && ((*entry)->samples.empty() || (*entry)->samples.back().timeMs < oldest);
    });
    while (m_records.size() > MaximumCameras) {
        auto quietest = m_records.end();
        for (auto it = m_records.begin(); it != m_records.end(); ++it) {
            const bool isCandidate = isQuiet(**it) && !(*it)->samples.empty();
            if (isCandidate && (quietest == m_records.end() || (*it)->samples.back().timeMs < (*quietest)->samples.back().timeMs))
                quietest = it;
        }
        if (quietest == m_records.end())
            return;
        m_records.erase(quietest);
    }
}

} // namespace orrin
