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
    , m_gate(std::make_shared<OutputGate>(std::exchange(m_parts.outputs, {})))
    , m_backOff(m_parts.timing.backOffBase)
{
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
    m_gate->close();
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
    return m_gate->outputs();
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
    m_parts.playbackState->setMode(PlayMode::Live);
    m_parts.playbackState->setSeekSpeed(1);
    if (!m_parts.hasVideo)
        return;
    createWorker();
    post([](StreamWorker &worker) { worker.setBusy(true); });
    requestEndpoint();
}

void StreamProcessor::stop()
{
    if (!m_active)
        return;
    m_active = false;
    m_playing = false;
    ++m_order;
    m_reportedError = PlaybackError::NoError;
    m_backOff.reset();
    for (QTimer *timer : {&m_retryTimer, &m_endpointTimer, &m_stableTimer})
        timer->stop();
    post([](StreamWorker &worker) { worker.close(); });
    m_parts.playbackState->setMode(PlayMode::Stopped);
    m_parts.playbackState->setSeekSpeed(0);
}

void StreamProcessor::execute(const PlaybackCommand &command)
{
    m_command = command;
    if (!m_active)
        return;
    switch (command.kind) {
    case PlaybackCommand::Kind::Live:
    case PlaybackCommand::Kind::Play:
        post([](StreamWorker &worker) { worker.setHeld(false); });
        m_parts.playbackState->setMode(PlayMode::Live);
        m_parts.playbackState->setSeekSpeed(1);
        break;
    case PlaybackCommand::Kind::Pause:
        post([](StreamWorker &worker) { worker.setHeld(true); });
        m_parts.playbackState->setMode(PlayMode::Paused);
        m_parts.playbackState->setSeekSpeed(0);
        break;
    case PlaybackCommand::Kind::Rewind:
    case PlaybackCommand::Kind::FastForward:
    case PlaybackCommand::Kind::StepBack:
    case PlaybackCommand::Kind::StepForward:
    case PlaybackCommand::Kind::JumpToStart:
    case PlaybackCommand::Kind::JumpToEnd:
    case PlaybackCommand::Kind::Jump:
    case PlaybackCommand::Kind::Scrub:
        break;
    }
}

void StreamProcessor::selectTrack(unsigned trackId)
{
    m_trackId = trackId;
}

void StreamProcessor::setStreamPreference(int preference)
{
    if (preference != int(StreamQuality::High) && preference != int(StreamQuality::Low))
        return;
    const auto quality = StreamQuality(preference);
    if (m_quality == quality)
        return;
    m_quality = quality;
    Q_EMIT m_parts.playbackState->stateChanged(PlaybackState::Property::StreamPreference);
    if (m_active && m_worker)
        requestEndpoint();
}

// A live stream has one module; there is nothing to switch yet.
void StreamProcessor::setModuleEnabled(SPModuleType, bool) {}

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
    session->requestMediaEndpoint(m_parts.channelUid.channelId, m_quality, this,
                                  [this, order](const MediaEndpointResult &result) {
                                      if (order == m_order && m_active)
                                          endpointReceived(result);
                                  });
}

void StreamProcessor::endpointReceived(const MediaEndpointResult &result)
{
    m_endpointTimer.stop();
    if (const auto *error = std::get_if<PlaybackError>(&result)) {
        retryLater(*error);
        return;
    }
    post([order = StreamOrder{m_order, std::get<MediaEndpoint>(result)}](StreamWorker &worker) { worker.open(order); });
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
    if (order == m_order)
        m_stableTimer.start(m_parts.timing.backOffBase * StableFactor);
}

void StreamProcessor::streamFailed(quint32 order, const PlaybackError &error, bool stillPlaying)
{
    if (!isOfThisRun(order))
        return;
    m_playing = stillPlaying;
    if (order == m_order)
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
    m_worker = new StreamWorker(m_gate, m_requestId.value, m_parts.timing);
    m_worker->moveToThread(m_thread);
    connect(m_worker, &StreamWorker::started, this, &StreamProcessor::streamStarted);
    connect(m_worker, &StreamWorker::failed, this, &StreamProcessor::streamFailed);
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
