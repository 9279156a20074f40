// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/stream/processor/outputgate.h"
#include "core/stream/processor/streamaudio.h"
#include "core/stream/processor/streamsource.h"
#include "core/stream/replay/replayplayer.h"
#include "core/stream/subtitles/framerate.h"

#include <QObject>

#include <atomic>
#include <memory>
#include <vector>

namespace orrin {

/*! What a StreamProcessor asks its worker to play. */
struct StreamOrder
{
    quint32 number = 0; //!< comes back with what is reported of the order
    MediaEndpoint endpoint;
};

/*! The moment of the frame that a stream shows, for both of its threads; 0 before the first one. */
using SharedPosition = std::shared_ptr<std::atomic<Time300>>;

/*! The side of a StreamProcessor that lives on a stream thread: owns the sources, gives their pictures numbers, times and extensions, and
    hands them to the outputs. All operations are called on its thread; the processor posts them.

    Live, one source plays while a second one may open; the second takes over with its first key frame, so that the picture never
    stands. Recorded video is a ReplayPlayer's, made by the first command; the live source is held then, and closed by the processor once a
    recorded picture shows. */
class StreamWorker : public QObject, private StreamSourceListener, private replay::ReplayPlayerListener
{
    Q_OBJECT
public:
    StreamWorker(std::shared_ptr<OutputGate> gate, quint16 streamId, const StreamTiming &timing,
                 std::shared_ptr<replay::SyncClock> clock, SharedPosition position);
    ~StreamWorker() override;

    /*! Plays sound too, before the first open(). \a alone: the outputs get no picture. */
    void setAudio(std::unique_ptr<StreamAudio> audio, bool alone);
    void setAudioEnabled(bool enabled);

    void open(const StreamOrder &order);
    /*! Ends all sources; no picture follows until the next open(). */
    void close();
    void setHeld(bool held);
    void closeLive();

    void replay(const replay::ReplayCommand &command);
    /*! Opens the recording, or another one in its place. \a sameTrack: after a break. */
    void openReplay(const StreamOrder &order, bool sameTrack);
    void closeReplay();

    void setPrivacyMask(const QByteArray &mask);
    void setBusy(bool busy);
    /*! Counts what the sources opened from now on receive and what is shown. */
    void setCounters(std::shared_ptr<StreamCounters> counters) { m_counters = std::move(counters); }
    void reportError(const PlaybackError &error);

Q_SIGNALS:
    /*! The first picture of an order has been shown. */
    void started(quint32 order);
    /*! \a stillPlaying: an older source goes on. */
    void failed(quint32 order, const orrin::PlaybackError &error, bool stillPlaying);
    void recordedTargetShown(quint32 run, qlonglong time);
    void recordedLimit(orrin::PlaybackState::Limit limit);
    void recordedGap(qlonglong begin, qlonglong end);
    /*! The connection to the recording went while nothing was asked of it. */
    void recordedLost(quint32 order);
    void recordedRefused(quint32 run, const orrin::PlaybackError &error);

private:
    struct Entry
    {
        std::unique_ptr<StreamSource> source;
        quint32 order = 0;
        bool started = false;
    };

    void pictureReady(StreamSource &source, SourcePicture picture) override;
    void sourceFailed(StreamSource &source, const PlaybackError &error) override;

    void showRecorded(const Image &image, Time300 time, bool key) override;
    void replayWaits(bool waiting) override;
    void limitReached(PlaybackState::Limit limit) override;
    void gapSkipped(Time300 begin, Time300 end) override;
    void arrived(quint32 run, Time300 time) override;
    void commandRefused(quint32 run, const PlaybackError &error) override;
    void replayFailed(const PlaybackError &error, bool idle) override;

    void showLive(const StreamSource &source, SourcePicture picture);
    void show(Image image, Time300 time, bool key, const MediaEndpoint &endpoint, const QByteArray &codec);
    void updateAudible();
    void retire(Entry &entry);

    std::shared_ptr<OutputGate> m_gate;
    const quint16 m_streamId;
    const StreamTiming m_timing;
    const std::shared_ptr<replay::SyncClock> m_clock;
    const SharedPosition m_position;
    std::unique_ptr<StreamAudio> m_audio; // null: nobody listens
    bool m_soundOnly = false;
    std::unique_ptr<replay::ReplayPlayer> m_player;
    MediaEndpoint m_replayEndpoint;
    quint32 m_replayOrder = 0;
    bool m_replayStarted = false;
    bool m_replayLost = false; // while nothing was asked of it
    std::shared_ptr<StreamCounters> m_counters;
    Entry m_current;
    Entry m_next;
    std::vector<std::unique_ptr<StreamSource>> m_retired; // each may be in the middle of a call
    quint64 m_frameId = 0;
    quint64 m_liveRun = 0; // pictures that wait belong to it
    FrameRate m_rate;
    QByteArray m_mask;
    bool m_maskShown = false;
    bool m_busy = false;
    bool m_held = false;
};

} // namespace orrin
