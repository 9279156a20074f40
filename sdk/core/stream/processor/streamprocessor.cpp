// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/processor/streamprocessor.h"

#include "core/stream/processor/requestidpool.h"
#include "core/stream/processor/streamerrors.h"
#include "core/stream/processor/streaminputcontrol.h"
#include "core/stream/processor/streamthreads.h"
#include "core/stream/processor/streamworker.h"
#include "core/stream/processor/trackaddress.h"

#include <utility>

namespace orrin {

using namespace std::chrono_literals;

namespace {

// A little more than a session may take for its answer.
constexpr auto EndpointTimeout = 12s;
// A stream that held that many pauses long is well again.
constexpr int StableFactor = 10;
constexpr int LastingErrorAttempt = 4;

} // namespace

StreamProcessor::StreamProcessor(StreamProcessorParts parts)
    : m_parts(std::move(parts))
    , m_requestId(RequestIdPool::instance().acquire())
    , m_gate(std::make_shared<OutputGate>(m_parts.hasVideo ? std::exchange(m_parts.outputs, {}) : m_parts.audioOutputs))
    , m_audioGate(m_parts.hasVideo ? std::make_shared<OutputGate>(m_parts.audioOutputs) : m_gate)
    , m_synchroniser(StreamSynchroniser::forContext(m_parts.syncContextId, m_parts.timing))
    , m_backOff(m_parts.timing.backOffBase)
{
    m_hasSound = !std::exchange(m_parts.audioOutputs, {}).isEmpty();
    // Sound is the same in both qualities.
    if (!m_parts.hasVideo)
        m_quality = StreamQuality::Low;
    if (!m_parts.playbackState)
        m_parts.playbackState.reset(new PlaybackState);
    if (!m_parts.inputControl)
        m_parts.inputControl.reset(new StreamInputControl(*this));
    for (QTimer *timer : {&m_retryTimer, &m_endpointTimer, &m_stableTimer})
        timer->setSingleShot(true);
    connect(&m_retryTimer, &QTimer::timeout, this, &StreamProcessor::requestEndpoint);
    connect(&m_endpointTimer, &QTimer::timeout, this, [this] {
        ++m_order;
        retryLater(PlaybackError(PlaybackError::StreamLost, tr("The server does not answer.")));
    });
    connect(&m_stableTimer, &QTimer::timeout, this, [this] { m_backOff.reset(); });
    connect(&StreamThreads::instance(), &StreamThreads::aboutToShutDown, this, [this] {
        stop();
        dropWorker();
    });
    attachSession();
}

StreamProcessor::~StreamProcessor()
{
    m_synchroniser->leave(this);
    m_gate->close();
    m_audioGate->close();
    dropWorker();
    RequestIdPool::instance().release(m_requestId);
}

QSharedPointer<PlaybackState> StreamProcessor::playbackState() const
{
    return m_parts.playbackState;
}

Channel *StreamProcessor::channel() const
{
    return m_parts.channel;
}

void StreamProcessor::setPresentationMode(int mode)
{
    m_presentationMode = mode;
}

unsigned StreamProcessor::trackIdBase() const
{
    return TrackAddress::base(m_trackId);
}

SPAbstractInputControl *StreamProcessor::inputControl() const
{
    return m_parts.inputControl.get();
}

QList<QSharedPointer<SPAbstractOutput>> StreamProcessor::outputs() const
{
    return m_audioGate == m_gate ? m_gate->outputs() : m_gate->outputs() + m_audioGate->outputs();
}

RequestId StreamProcessor::requestId() const
{
    return m_requestId;
}

bool StreamProcessor::isActive() const
{
    return m_active;
}

void StreamProcessor::start()
{
    if (m_active)
        return;
    m_active = true;
    m_firstOrder = m_order;
    m_command = {};
    m_commanded = false;
    m_source = Source::Live;
    m_liveHeld = m_liveOpen = m_replayOpen = false;
    setState(PlayMode::Live, 1);
    if (!isPlayed())
        return;
    createWorker();
    m_counted = StreamMeter::instance().countStream(m_parts.channelUid);
    post([counters = StreamMeter::instance().counters(m_parts.channelUid)](StreamWorker &worker) {
        worker.setCounters(counters);
        worker.setBusy(true);
    });
    m_synchroniser->join(this);
    // One that joins others which play a recording goes where they are.
    if (const auto current = m_synchroniser->current())
        playRecorded(*current, current->rate == 0.0 ? PlayMode::Paused : PlayMode::Play, int(current->rate));
    else
        requestEndpoint();
}

void StreamProcessor::stop()
{
    if (!m_active)
        return;
    m_active = false;
    m_synchroniser->leave(this);
    m_playing = false;
    m_counted.reset();
    ++m_order;
    m_reportedError = PlaybackError::NoError;
    m_backOff.reset();
    for (QTimer *timer : {&m_retryTimer, &m_endpointTimer, &m_stableTimer})
        timer->stop();
    post([](StreamWorker &worker) { worker.close(); });
    setState(PlayMode::Stopped, 0);
}

void StreamProcessor::setState(PlayMode mode, int seekSpeed)
{
    m_parts.playbackState->setMode(mode);
    m_parts.playbackState->setSeekSpeed(seekSpeed);
}

void StreamProcessor::execute(const PlaybackCommand &command)
{
    m_command = command;
    if (!m_active || !isPlayed())
        return;
    const bool isFirst = !std::exchange(m_commanded, true);
    // A stream opens with the command to be live, which is not meant for the others of its context.
    if (isFirst && command.kind == PlaybackCommand::Kind::Live && m_source == Source::Recorded)
        return;
    m_synchroniser->execute(this, command);
}

void StreamProcessor::playLive()
{
    m_source = Source::Live;
    m_liveHeld = false;
    m_replayOpen = false;
    m_parts.playbackState->setLimit(PlaybackState::Limit::Inside);
    setState(PlayMode::Live, 1);
    if (!m_active)
        return;
    post([](StreamWorker &worker) {
        worker.closeReplay();
        worker.setHeld(false);
    });
    if (!m_liveOpen || m_retryTimer.isActive())
        requestEndpoint();
}

void StreamProcessor::holdLive()
{
    m_liveHeld = true;
    if (m_active)
        post([](StreamWorker &worker) { worker.setHeld(true); });
    setState(PlayMode::Paused, 0);
}

void StreamProcessor::playRecorded(const replay::ReplayCommand &command, PlayMode mode, int seekSpeed)
{
    if (!m_active || !m_worker)
        return;
    m_source = Source::Recorded;
    setState(mode, seekSpeed);
    post([command](StreamWorker &worker) { worker.replay(command); });
    // To stand still needs no recorder, and a drag is no reason to hurry one that is not there.
    const bool isHold = !command.target && command.steps == 0 && command.rate == 0.0;
    if ((!m_replayOpen && !isHold) || (m_retryTimer.isActive() && !isHold && !command.scrub))
        requestEndpoint();
}

void StreamProcessor::requestBounds(BoundsCallback callback)
{
    Session *session = attachSession();
    if (!session) {
        callback(std::nullopt);
        return;
    }
    // A session that ends meanwhile does not answer.
    const auto pending = std::make_shared<BoundsCallback>(std::move(callback));
    const auto answer = [pending](const std::optional<TrackBounds> &bounds) {
        if (const BoundsCallback call = std::exchange(*pending, nullptr))
            call(bounds);
    };
    QTimer::singleShot(EndpointTimeout, this, [answer] { answer(std::nullopt); });
    session->requestTrackBounds(m_parts.channelUid.channelId, int(m_trackId), this, answer);
}

void StreamProcessor::refuseCommand(int errorCode)
{
    post([error = PlaybackError(errorCode)](StreamWorker &worker) { worker.reportError(error); });
}

void StreamProcessor::recordedRefused(quint32 run, const PlaybackError &error)
{
    if (!m_active || m_source != Source::Recorded)
        return;
    post([error](StreamWorker &worker) { worker.reportError(error); });
    if (!m_synchroniser->refused(this, run))
        setState(PlayMode::Paused, 0);
}

void StreamProcessor::recordedLimit(PlaybackState::Limit limit)
{
    if (!m_active || m_source != Source::Recorded)
        return;
    m_parts.playbackState->setLimit(limit);
    if (limit == PlaybackState::Limit::Beginning && m_parts.playbackState->mode() == PlayMode::Rewind) {
        m_synchroniser->stopped(this);
        setState(PlayMode::Paused, 0);
    }
}

// The server does not play it back; trying again does not help.
void StreamProcessor::refuseReplay(const PlaybackError &error)
{
    m_replayOpen = false;
    m_retryTimer.stop();
    // A camera that records nothing is live or held, and no more.
    if (m_liveHeld && m_command.kind == PlaybackCommand::Kind::Play && error.errorCode() != PlaybackError::NotPermitted) {
        playLive();
        return;
    }
    post([error](StreamWorker &worker) {
        worker.setBusy(false);
        worker.reportError(error);
    });
    setState(PlayMode::Paused, 0);
}

void StreamProcessor::selectTrack(unsigned trackId)
{
    if (std::exchange(m_trackId, trackId) != trackId && m_active && m_source == Source::Recorded)
        requestEndpoint();
}

void StreamProcessor::setStreamPreference(int preference)
{
    if (preference != int(StreamQuality::High) && preference != int(StreamQuality::Low))
        return;
    const auto quality = StreamQuality(preference);
    if (m_quality == quality || !m_parts.hasVideo)
        return;
    m_quality = quality;
    Q_EMIT m_parts.playbackState->stateChanged(PlaybackState::Property::StreamPreference);
    if (m_active && m_worker)
        requestEndpoint();
}

void StreamProcessor::setModuleEnabled(SPModuleType module, bool enabled)
{
    if (module != SPModuleType::Audio)
        return;
    m_audioEnabled = enabled;
    post([enabled](StreamWorker &worker) { worker.setAudioEnabled(enabled); });
}

Session *StreamProcessor::attachSession()
{
    Session *session = m_parts.findSession ? m_parts.findSession(m_parts.channelUid.serverUid) : nullptr;
    if (session == m_session)
        return session;
    if (m_session)
        disconnect(m_session, nullptr, this, nullptr);
    m_session = session;
    setConnection(session ? session->connection() : nullptr);
    if (!session)
        return nullptr;
    connect(session, &Session::described, this, &StreamProcessor::applyDescription);
    connect(session, &Session::lost, this, [this] { setConnection(nullptr); });
    connect(session, &Session::restored, this, [this] {
        setConnection(m_session->connection());
        retryNow();
    });
    connect(session, &QObject::destroyed, this, [this] { setConnection(nullptr); });
    return session;
}

void StreamProcessor::applyDescription(const SiteDescription &site)
{
    for (const ChannelDescription &channel : site.channels) {
        if (channel.id != m_parts.channelUid.channelId)
            continue;
        post([mask = channel.privacyMask](StreamWorker &worker) { worker.setPrivacyMask(mask); });
        return;
    }
}

void StreamProcessor::requestEndpoint()
{
    m_retryTimer.stop();
    const quint32 order = ++m_order;
    Session *session = attachSession();
    if (!session) {
        retryLater(PlaybackError(PlaybackError::StreamLost, tr("The server is not connected.")));
        return;
    }
    m_endpointTimer.start(EndpointTimeout);
    const auto answer = [this, order](const MediaEndpointResult &result) {
        if (order == m_order && m_active)
            endpointReceived(result);
    };
    if (m_source == Source::Live) {
        session->requestMediaEndpoint(m_parts.channelUid.channelId, m_quality, this, answer);
    } else {
        m_replayOpen = true;
        session->requestReplayEndpoint(m_parts.channelUid.channelId, int(m_trackId), m_quality, this, answer);
    }
}

void StreamProcessor::endpointReceived(const MediaEndpointResult &result)
{
    m_endpointTimer.stop();
    if (const auto *error = std::get_if<PlaybackError>(&result)) {
        if (m_source == Source::Recorded && isLasting(*error))
            refuseReplay(*error);
        else
            retryLater(*error);
        return;
    }
    const StreamOrder order{m_order, std::get<MediaEndpoint>(result)};
    if (m_source == Source::Live) {
        m_liveOpen = true;
        post([order](StreamWorker &worker) { worker.open(order); });
        return;
    }
    const std::pair<unsigned, StreamQuality> track{m_trackId, m_quality};
    const bool same = std::exchange(m_replayOf, track) == track;
    post([order, same](StreamWorker &worker) { worker.openReplay(order, same); });
}

// What is reported of orders given before stop() may still be on its way.
bool StreamProcessor::isOfThisRun(quint32 order) const
{
    return m_active && qint32(order - m_firstOrder) > 0;
}

void StreamProcessor::streamStarted(quint32 order)
{
    if (!isOfThisRun(order))
        return;
    m_playing = true;
    m_reportedError = PlaybackError::NoError;
    if (m_source == Source::Recorded && m_liveOpen) {
        m_liveOpen = false;
        post([](StreamWorker &worker) { worker.closeLive(); });
    }
    if (order == m_order)
        m_stableTimer.start(m_parts.timing.backOffBase * StableFactor);
}

void StreamProcessor::streamFailed(quint32 order, const PlaybackError &error, bool stillPlaying)
{
    if (!isOfThisRun(order))
        return;
    if (m_playing && !stillPlaying && m_counted)
        m_counted->reconnects.fetch_add(1, std::memory_order_relaxed);
    m_playing = stillPlaying;
    if (order != m_order)
        return;
    if (m_source == Source::Recorded && isLasting(error))
        refuseReplay(error);
    else
        retryLater(error);
}

void StreamProcessor::retryLater(const PlaybackError &error)
{
    m_stableTimer.stop();
    // While the other quality plays on, a switch that fails is tried again silently.
    if (!m_playing && m_reportedError != error.errorCode()) {
        m_reportedError = error.errorCode();
        post([error](StreamWorker &worker) { worker.reportError(error); });
    }
    if (isLasting(error))
        m_backOff.skipTo(LastingErrorAttempt);
    m_retryTimer.start(m_backOff.next());
}

void StreamProcessor::retryNow()
{
    if (m_active && m_retryTimer.isActive())
        requestEndpoint();
}

void StreamProcessor::createWorker()
{
    if (m_worker)
        return;
    m_thread = StreamThreads::instance().acquire();
    m_worker = new StreamWorker(m_gate, m_requestId.value, m_parts.timing, m_synchroniser->clock(), m_position);
    if (m_hasSound) {
        auto audio = std::make_unique<StreamAudio>(m_audioGate, m_requestId.value, m_synchroniser->clock());
        audio->setEnabled(m_audioEnabled);
        m_worker->setAudio(std::move(audio), !m_parts.hasVideo);
    }
    m_worker->moveToThread(m_thread);
    connect(m_worker, &StreamWorker::started, this, &StreamProcessor::streamStarted);
    connect(m_worker, &StreamWorker::failed, this, &StreamProcessor::streamFailed);
    connect(m_worker, &StreamWorker::recordedTargetShown, this,
            [this](quint32 run, Time300 time) { m_synchroniser->arrived(this, run, time); });
    connect(m_worker, &StreamWorker::recordedLost, this, [this](quint32 order) {
        // The next command opens it again.
        if (order == m_order && m_source == Source::Recorded)
            m_replayOpen = false;
    });
    connect(m_worker, &StreamWorker::recordedRefused, this, &StreamProcessor::recordedRefused);
    connect(m_worker, &StreamWorker::recordedLimit, this, &StreamProcessor::recordedLimit);
    connect(m_worker, &StreamWorker::recordedGap, this, [this](Time300 begin, Time300 end) {
        if (m_active && m_source == Source::Recorded)
            m_parts.playbackState->setGap(begin, end);
    });
}

void StreamProcessor::dropWorker()
{
    if (!m_worker)
        return;
    disconnect(m_worker, nullptr, this, nullptr);
    std::exchange(m_worker, nullptr)->deleteLater();
    StreamThreads::instance().release(m_thread);
    m_thread.clear();
}

template <typename Function>
void StreamProcessor::post(Function function)
{
    if (m_worker)
        QMetaObject::invokeMethod(
            m_worker, [worker = m_worker, function] { function(*worker); }, Qt::QueuedConnection);
}

} // namespace orrin
