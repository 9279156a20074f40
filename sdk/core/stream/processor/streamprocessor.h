// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/sitedescription.h"
#include "core/session/session.h"
#include "core/stream/processor/backoff.h"
#include "core/stream/processor/outputgate.h"
#include "core/stream/processor/playbackcommand.h"
#include "core/stream/processor/streamsource.h"

#include <contract/core/abstractstreamprocessor.h>
#include <contract/core/channel.h>
#include <contract/util/channeluid.h>

#include <QPointer>
#include <QThread>
#include <QTimer>

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
    /*! False for a stream of sound alone, which is kept idle. */
    bool hasVideo = true;
    /*! The session of a server; null while there is none. */
    std::function<Session *(unsigned long long serverUid)> findSession;
    StreamTiming timing;
};

/*! Plays one channel live. Main thread; its StreamWorker does the work on a stream thread.

    Asks the session for a media endpoint, has the worker play it, and begins anew with back-off when that breaks: the error is
    told to the outputs once, the busy state holds until pictures come again. When the session is restored the next attempt is made at once. Of
    the commands, live, pause, play, the stream preference and the track take effect; the others are kept as the last command,
    and change nothing in a live stream. */
class ORRINSDK_CORE_EXPORT StreamProcessor : public AbstractStreamProcessor, private PlaybackCommandSink
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
    QPointer<Session> m_session;
    QPointer<QThread> m_thread;
    StreamWorker *m_worker = nullptr; // lives on m_thread, deleted there
    PlaybackCommand m_command;
    StreamQuality m_quality = StreamQuality::High;
    int m_presentationMode = 0;
    unsigned m_trackId = 1;
    bool m_active = false;
    bool m_playing = false;
    quint32 m_order = 0;
    quint32 m_firstOrder = 0; // orders of this run are above it
    int m_reportedError = PlaybackError::NoError;
    BackOff m_backOff;
    QTimer m_retryTimer;
    QTimer m_endpointTimer;
    QTimer m_stableTimer;
};

} // namespace orrin
