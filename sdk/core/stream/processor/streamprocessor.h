// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/sitedescription.h"
#include "core/session/session.h"
#include "core/stream/processor/backoff.h"
#include "core/stream/processor/outputgate.h"
#include "core/stream/processor/playbackcommand.h"
#include "core/stream/processor/streamsource.h"
#include "core/stream/processor/streamsynchroniser.h"

#include <contract/core/abstractstreamprocessor.h>
#include <contract/core/channel.h>
#include <contract/util/channeluid.h>

#include <QPointer>
#include <QThread>
#include <QTimer>

#include <atomic>
#include <functional>
#include <memory>

namespace orrin {

class StreamWorker;
struct StreamOrder;

/*! What a StreamProcessor is made of. */
struct StreamProcessorParts
{
    ChannelUID channelUid;
    QPointer<Channel> channel;
    QSharedPointer<PlaybackState> playbackState;
    /*! Null: the processor uses its own. */
    QSharedPointer<SPAbstractInputControl> inputControl;
    QList<QSharedPointer<SPAbstractOutput>> outputs;
    /*! For the stream's sound; none: it is not asked for. */
    QList<QSharedPointer<SPAbstractOutput>> audioOutputs;
    /*! False for a stream of sound alone; without outputs for it, it is kept idle. */
    bool hasVideo = true;
    /*! The session of a server; null while there is none. */
    std::function<Session *(unsigned long long serverUid)> findSession;
    StreamTiming timing;
    /*! Streams of the same context, above 0, play the same moment. */
    int syncContextId = -1;
};

/*! Plays one channel, live or recorded. Main thread; its StreamWorker does the work on a stream thread.

    Asks the session for a media endpoint, has the worker play it, and begins anew with back-off when that breaks: the error is
    told to the outputs once, the busy state holds until pictures come again. When the session is restored the next attempt is made at once.
    Recorded video resumes where it was.

    Commands go to the synchroniser, which makes of them what this stream, and those of its sync context, do. What the server refuses (no right to
    play back, no recording) is told once and not tried again until the next command. */
class ORRINSDK_CORE_EXPORT StreamProcessor : public AbstractStreamProcessor, private PlaybackCommandSink, private SynchronisedStream
{
    Q_OBJECT
public:
    explicit StreamProcessor(StreamProcessorParts parts);
    ~StreamProcessor() override;

    QSharedPointer<PlaybackState> playbackState() const override;
    Channel *channel() const override;
    void setPresentationMode(int mode) override;
    unsigned trackIdBase() const override;

    SPAbstractInputControl *inputControl() const override;
    QList<QSharedPointer<SPAbstractOutput>> outputs() const override;
    RequestId requestId() const override;
    void start() override;
    void stop() override;
    bool isActive() const override;

    const PlaybackCommand &lastCommand() const { return m_command; }
    int presentationMode() const { return m_presentationMode; }

private:
    void execute(const PlaybackCommand &command) override;
    void selectTrack(unsigned trackId) override;
    void setStreamPreference(int preference) override;
    void setModuleEnabled(SPModuleType module, bool enabled) override;

    void playLive() override;
    void holdLive() override;
    bool isLive() const override { return m_source == Source::Live; }
    void playRecorded(const replay::ReplayCommand &command, PlayMode mode, int seekSpeed) override;
    Time300 position() const override { return m_position->load(std::memory_order_relaxed); }
    void requestBounds(BoundsCallback callback) override;
    void refuseCommand(int errorCode) override;

    void recordedRefused(quint32 run, const PlaybackError &error);
    void recordedLimit(PlaybackState::Limit limit);
    void refuseReplay(const PlaybackError &error);
    void setState(PlayMode mode, int seekSpeed);

    Session *attachSession();
    void applyDescription(const SiteDescription &site);
    void requestEndpoint();
    void endpointReceived(const MediaEndpointResult &result);
    bool isOfThisRun(quint32 order) const;
    void streamStarted(quint32 order);
    void streamFailed(quint32 order, const PlaybackError &error, bool stillPlaying);
    void retryLater(const PlaybackError &error);
    void retryNow();

    void createWorker();
    void dropWorker();
    template <typename Function>
    void post(Function function);

    StreamProcessorParts m_parts;
    const RequestId m_requestId;
    std::shared_ptr<OutputGate> m_gate;
    std::shared_ptr<OutputGate> m_audioGate; // the same one for sound alone
    QPointer<Session> m_session;
    QPointer<QThread> m_thread;
    StreamWorker *m_worker = nullptr; // lives on m_thread, deleted there
    QSharedPointer<StreamSynchroniser> m_synchroniser;
    const std::shared_ptr<std::atomic<Time300>> m_position = std::make_shared<std::atomic<Time300>>(0);
    enum class Source { Live, Recorded };
    Source m_source = Source::Live;
    bool m_commanded = false;  // since start()
    bool m_liveHeld = false;
    bool m_liveOpen = false;
    bool m_replayOpen = false; // the recording was found, or is being asked for
    std::pair<unsigned, StreamQuality> m_replayOf{0, StreamQuality::High};
    PlaybackCommand m_command;
    StreamQuality m_quality = StreamQuality::High;
    int m_presentationMode = 0;
    unsigned m_trackId = 1;
    bool isPlayed() const { return m_parts.hasVideo || m_hasSound; }

    bool m_hasSound = false;
    bool m_audioEnabled = true;
    bool m_active = false;
    bool m_playing = false;
    quint32 m_order = 0;
    quint32 m_firstOrder = 0; // orders of this run are above it
    int m_reportedError = PlaybackError::NoError;
    BackOff m_backOff;
    std::shared_ptr<StreamCounters> m_counted; // while the stream is started
    QTimer m_retryTimer;
    QTimer m_endpointTimer;
    QTimer m_stableTimer;
};

} // namespace orrin
