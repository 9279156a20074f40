// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/stream/processor/playbackcommand.h"
#include "core/stream/processor/streamtiming.h"
#include "core/stream/replay/replaycommand.h"
#include "core/stream/replay/syncclock.h"

#include <contract/core/export.h>
#include <contract/core/playmode.h>
#include <contract/core/spabstractsynchroniser.h>
#include <contract/core/trackbounds.h>

#include <QObject>
#include <QSharedPointer>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace orrin {

/*! A stream as its synchroniser sees it. Main thread. */
class SynchronisedStream
{
public:
    using BoundsCallback = std::function<void(const std::optional<TrackBounds> &)>;

    virtual ~SynchronisedStream() = default;
    virtual void playLive() = 0;
    /*! Stands still at the live picture. */
    virtual void holdLive() = 0;
    virtual bool isLive() const = 0;
    virtual void playRecorded(const replay::ReplayCommand &command, PlayMode mode, int seekSpeed) = 0;
    /*! Of the frame shown; 0 before the first one. */
    virtual Time300 position() const = 0;
    virtual void requestBounds(BoundsCallback callback) = 0;
    /*! The command cannot be done. */
    virtual void refuseCommand(int errorCode) = 0;
};

/*! Turns the commands of the user into what one stream does, or all streams of a sync context: they share one clock, and a command to one acts on all.
    A stream of no context has one of its own. Main thread, but for the clock, which the streams' threads read.

    Jump, scrub and play from here take all to the same moment. A step moves the commanded stream by one of its own frames and the others to
    the moment of that frame. The limits are those of the commanded stream. */
class ORRINSDK_CORE_EXPORT StreamSynchroniser : public QObject, public SPAbstractSynchroniser
{
    Q_OBJECT
public:
    explicit StreamSynchroniser(const StreamTiming &timing);
    ~StreamSynchroniser() override;

    /*! The one of that context while anybody holds it; a new one for ids below 1. */
    static QSharedPointer<StreamSynchroniser> forContext(int syncContextId, const StreamTiming &timing);

    void join(SynchronisedStream *stream);
    void leave(SynchronisedStream *stream);
    const std::shared_ptr<replay::SyncClock> &clock() const { return m_clock; }

    void execute(SynchronisedStream *leader, const PlaybackCommand &command);
    /*! A stream has shown its target, or its last step. */
    void arrived(SynchronisedStream *stream, quint32 run, Time300 time);
    /*! A stream cannot do what the run asks. True when it goes on with what it did before, as one does that is alone and was to jump. */
    bool refused(SynchronisedStream *stream, quint32 run);
    /*! A stream came to the beginning of its recording. */
    void stopped(SynchronisedStream *stream);
    /*! What a stream that comes to itself again, or joins, is to do to be where the others are; nothing while they are live. */
    std::optional<replay::ReplayCommand> current() const;

private:
    void play(SynchronisedStream *leader, std::optional<Time300> target, double rate);
    void goTo(SynchronisedStream *leader, Time300 time, replay::ReplayCommand::Place place, bool scrub);
    void goToLimit(SynchronisedStream *leader, bool begin);
    void step(SynchronisedStream *leader, int steps);
    Time300 positionOf(SynchronisedStream *leader) const;
    /*! Begins a run and gives it to the streams; the leader gets \a leading. */
    void run(SynchronisedStream *leader, const replay::ReplayCommand &leading, const replay::ReplayCommand &following, PlayMode mode);

    const StreamTiming m_timing;
    std::shared_ptr<replay::SyncClock> m_clock;
    std::vector<SynchronisedStream *> m_streams;
    std::optional<replay::ReplayCommand> m_current;
    SynchronisedStream *m_stepping = nullptr;
    quint32 m_run = 0;
    bool m_fromLive = false; // the run began at the live edge
    quint32 m_question = 0; // the newest for bounds
    double m_rate = 1.0;    // that play goes on at; 0 in pause
    QTimer m_scrubEnd;
};

} // namespace orrin
