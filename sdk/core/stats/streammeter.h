// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/stats/statspage.h"

#include <contract/core/export.h>
#include <contract/util/channeluid.h>

#include <QElapsedTimer>
#include <QHash>
#include <QObject>
#include <QTimer>

#include <array>
#include <atomic>
#include <chrono>
#include <deque>
#include <memory>

namespace orrin {

/*! What the streams of one camera count, each on its own thread. All members are safe on any thread. */
struct StreamCounters
{
    std::atomic<quint64> pictures{0};
    std::atomic<quint64> bytes{0};
    std::atomic<quint64> packetsLost{0};
    std::atomic<quint64> reconnects{0};
    std::atomic<qint64> delayMs{0}; //!< of the newest picture
    std::atomic<int> streams{0};    //!< that are started; nothing is recorded at 0
};

/*! Records what this client measures of the streams that it shows: pictures, data, delay, losses and reconnects of each camera, every ten seconds for a
    day. Main thread; the counters are the streams'.

    A camera of which nothing was shown for that long is forgotten; of more than MaximumCameras those go that were quiet the longest. */
class ORRINSDK_CORE_EXPORT StreamMeter : public QObject
{
    Q_OBJECT
public:
    static constexpr std::chrono::seconds Interval{10};
    static constexpr qsizetype MaximumSamples = 8640;
    static constexpr qsizetype MaximumCameras = 256;

    static StreamMeter &instance();

    explicit StreamMeter(QObject *parent = nullptr);
    ~StreamMeter() override;

    /*! The counters of a camera, shared by all its streams. */
    std::shared_ptr<StreamCounters> counters(ChannelUID channel);

    /*! Marks one stream of a camera as started, for as long as the result lives. */
    std::shared_ptr<StreamCounters> countStream(ChannelUID channel);

    /*! The cameras of a server of which there are samples, ascending. */
    QList<int> channels(quint64 serverUid) const;

    /*! The samples of a server's cameras between two times of this machine's clock, inclusive, moved by \a offsetMs. */
    StatsPage samples(quint64 serverUid, qint64 fromMs, qint64 toMs, qint64 offsetMs) const;

    /*! Takes a sample of all cameras for the time \a nowMs, as the timer does; \a elapsedMs since the last. */
    void sample(qint64 nowMs, qint64 elapsedMs);

Q_SIGNALS:
    /*! There are new samples. */
    void sampled();

private:
    struct Sample
    {
        qint64 timeMs = 0;
        std::array<float, 5> values{}; // in the order of measuredHeadings()
    };
    struct Record
    {
        std::shared_ptr<StreamCounters> counters;
        quint64 pictures = 0;
        quint64 bytes = 0;
        quint64 packetsLost = 0;
        quint64 reconnects = 0;
        std::deque<Sample> samples;
    };

    void onTimer();
    static void record(Record &record, qint64 nowMs, double seconds);
    void forget(qint64 nowMs);

    QHash<ChannelUID, std::shared_ptr<Record>> m_records;
    QTimer m_timer;
    QElapsedTimer m_sinceSample;
};

} // namespace orrin
