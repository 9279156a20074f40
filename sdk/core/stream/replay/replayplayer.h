// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/stream/replay/gopbuffer.h"
#include "core/stream/replay/gopdecoder.h"
#include "core/stream/replay/replaycommand.h"
#include "core/stream/replay/replaylink.h"
#include "core/stream/replay/syncclock.h"

#include <contract/core/playbackerror.h>
#include <contract/core/playbackstate.h>

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <memory>
#include <mutex>
#include <optional>

namespace orrin::replay {

/*! Takes what a ReplayPlayer shows and tells. Called on the stream's thread. */
class ReplayPlayerListener
{
public:
    virtual ~ReplayPlayerListener() = default;
    virtual void showRecorded(const Image &image, Time300 time, bool key) = 0;
    /*! Somebody waits for a picture, or no longer. */
    virtual void replayWaits(bool waiting) = 0;
    virtual void limitReached(PlaybackState::Limit limit) = 0;
    virtual void gapSkipped(Time300 begin, Time300 end) = 0;
    /*! The target or the last step of the run is shown. */
    virtual void arrived(quint32 run, Time300 time) = 0;
    /*! What the run asks for cannot be done; the player holds the frame and takes the next command. */
    virtual void commandRefused(quint32 run, const PlaybackError &error) = 0;
    /*! The connection is gone; open() goes on where the player stands. \a idle: nothing was asked of it. */
    virtual void replayFailed(const PlaybackError &error, bool idle) = 0;
};

/*! Plays the recording of one track: in any direction, at any rate, frame by frame, to any moment. Lives on a stream thread; nothing in it waits.

    It keeps one contiguous stretch of coded frames around the frame shown (GopBuffer), which a ReplayLink extends at either end, and the pictures
    decoded of it (GopDecoder). A command says where to be and how to go on; each event (a frame that came, a timer, the clock) makes
    advance() do what is possible: find the frame that is wanted, ask for the stretch where it must be, decode towards it, show it when the clock says so. */
class ORRINSDK_CORE_EXPORT ReplayPlayer : public QObject, private ReplayLinkListener
{
    Q_OBJECT
public:
    /*! Up to that rate all frames are shown, above it key frames. */
    static constexpr double AllFramesRate = 4.0;
    /*! So many key frames a second. */
    static constexpr double KeyFrameRate = 12.0;

    /*! \a listener and \a audio, which may be null, outlive the player. */
    ReplayPlayer(ReplayPlayerListener &listener, const StreamTiming &timing, std::shared_ptr<SyncClock> clock, AudioTrack *audio);
    ~ReplayPlayer() override;

    /*! Commands may come before. \a sameTrack: what is known of the recording still holds. */
    void open(const MediaEndpoint &endpoint, bool sameTrack);
    void execute(const ReplayCommand &command);
    /*! For good: nothing is shown or told any more. */
    void close();

    QByteArray codecName() const { return m_decoder.codecName(); }
    /*! Nothing is left to be done. */
    bool isIdle() const { return !m_seek && !m_wanted && m_steps == 0 && m_rate == 0.0; }
    /*! Of the frame shown. */
    Time300 position() const { return m_position; }

private:
    enum class Phase {
        Near, //!< a stretch at the moment was asked for
        Far,  //!< everything behind the moment was
        Back, //!< what is before the moment was
    };
    struct Seek
    {
        Time300 time = 0;
        ReplayCommand::Place place = ReplayCommand::Place::At;
        Phase phase = Phase::Near;
    };
    struct Feed
    {
        bool active = false;  // more may come
        bool ended = false;   // it came to its end by itself
        bool backward = false;
        bool bounded = false; // a stretch, no endless one
        qint64 fromMs = 0;
        qint64 toMs = 0;
    };

    void codecKnown(VideoCodec codec) override;
    void frameReceived(CodedFrame frame) override;
    void rangeEnded() override;
    void rangeRefused(const PlaybackError &error) override;
    void linkFailed(const PlaybackError &error) override;

    void advanceLater();
    void advance();

    void startSeek();
    void seek();
    void arriveAt(const FrameRef &frame);
    FrameRef chosen(const FrameRef &at, const FrameRef &after, Time300 time) const;
    void seekFurther(Phase phase);
    void showWanted();
    void step();
    void stepForward();
    void stepBack();
    void play();
    void playFrame(const FrameRef &next, int direction, bool *goOn);
    void waitForData(int direction);
    void reachLimit(int direction);
    void decodeAhead(const FrameRef &next, int direction);
    bool catchUp(const FrameRef &next);
    FrameRef nextInPlay(int direction) const;

    void ask(bool backward, qint64 fromMs, qint64 toMs, bool bounded);
    void askForward(Time300 from, bool bounded);
    void askBackward(qint64 fromMs, bool bounded);
    void feedPlay(int direction);
    void regulate();
    void clearBuffer();
    void present(const FrameRef &frame, const Image &image);
    void setLimit(PlaybackState::Limit limit);
    void setWaiting(bool waiting);
    void finishCommand();
    void refuse(const PlaybackError &error);
    qint64 windowMs() const;
    qint64 farMs(qint64 fromMs) const;
    Time300 interval() const;
    Time300 keyInterval() const;
    bool isGap(const FrameRef &earlier, const FrameRef &later) const;

    /*! What the clock holds of the player, from other threads and beyond its end. */
    struct Waker
    {
        std::mutex mutex;
        ReplayPlayer *player = nullptr;
    };

    ReplayPlayerListener &m_listener;
    const StreamTiming m_timing;
    const std::shared_ptr<SyncClock> m_clock;
    const std::shared_ptr<Waker> m_waker = std::make_shared<Waker>();
    SyncClock::Member m_member = 0;
    AudioTrack *m_audio;
    MediaEndpoint m_endpoint;
    ReplayLink m_link;
    GopBuffer m_buffer;
    GopDecoder m_decoder;
    Feed m_feed;

    quint32 m_run = 0;
    std::optional<Seek> m_seek;
    bool m_scrubbing = false;
    std::optional<ReplayCommand> m_nextScrub;
    QElapsedTimer m_seekTime;
    FrameRef m_wanted; // found, to be decoded and shown
    int m_steps = 0;
    double m_rate = 0.0;
    bool m_keysOnly = false;
    std::optional<quint32> m_readyRun;
    Time300 m_position = 0;
    bool m_hasPosition = false;
    bool m_stepFar = false;
    PlaybackState::Limit m_limit = PlaybackState::Limit::Inside;
    int m_corruptRun = 0;
    int m_strange = 0; // frames of this feed from another time
    int m_growthAsked = 0;
    bool m_queued = false;
    bool m_closed = false;
    QTimer m_timer;
    QTimer m_growthTimer;
    QTimer m_waitTimer;
    bool m_waiting = false;
};

} // namespace orrin::replay
