// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/processor/streamworker.h"

#include "codecs/framefacts.h"

#include <contract/codecs/videoframe.h>
#include <contract/core/mask.h>

#include <QThread>
#include <QTimer>

#include <optional>
#include <utility>

namespace orrin {

namespace {

constexpr std::uint8_t KeyFrameFlag = 0x10;

long long delayOf(rtp::CaptureTime captured, qint64 clockOffsetMs)
{
    using namespace std::chrono;
    const auto now = duration_cast<nanoseconds>(system_clock::now().time_since_epoch()) + milliseconds(clockOffsetMs);
    return duration_cast<milliseconds>(now - captured).count();
}

} // namespace

StreamWorker::StreamWorker(std::shared_ptr<OutputGate> gate, quint16 streamId, const StreamTiming &timing,
                           std::shared_ptr<replay::SyncClock> clock, SharedPosition position)
    : m_gate(std::move(gate))
    , m_streamId(streamId)
    , m_timing(timing)
    , m_clock(std::move(clock))
    , m_position(std::move(position))
{
}

StreamWorker::~StreamWorker()
{
    Q_ASSERT(thread() == QThread::currentThread());
}

void StreamWorker::setAudio(std::unique_ptr<StreamAudio> audio, bool alone)
{
    m_audio = std::move(audio);
    m_soundOnly = alone;
}

void StreamWorker::setAudioEnabled(bool enabled)
{
    if (m_audio)
        m_audio->setEnabled(enabled);
}

// Of live sound; of recorded sound the player says it.
void StreamWorker::updateAudible()
{
    if (m_audio && !m_player)
        m_audio->setAudible(m_current.started && !m_held);
}

void StreamWorker::open(const StreamOrder &order)
{
    Q_ASSERT(thread() == QThread::currentThread());
    m_mask = order.endpoint.privacyMask;
    retire(m_next);
    if (m_current.source && m_current.source->endpoint().url == order.endpoint.url) {
        // The camera has one stream for both qualities.
        m_current.order = order.number;
        if (m_current.started)
            Q_EMIT started(order.number);
        return;
    }
    StreamSourceListener &listener = *this;
    m_next = {std::make_unique<StreamSource>(listener, m_timing, m_audio.get()), order.number, false};
    m_next.source->setSoundOnly(m_soundOnly);
    m_next.source->setCounters(m_counters);
    if (m_audio && !m_player)
        m_audio->setEndpoint(order.endpoint);
    m_next.source->setHeld(m_held);
    m_next.source->open(order.endpoint);
}

void StreamWorker::close()
{
    closeLive();
    closeReplay();
    m_held = false;
    setBusy(false);
}

void StreamWorker::closeLive()
{
    ++m_liveRun;
    retire(m_next);
    retire(m_current);
}

void StreamWorker::replay(const replay::ReplayCommand &command)
{
    if (!m_player) {
        setHeld(true);
        if (m_audio)
            m_audio->setRecorded(true);
        replay::ReplayPlayerListener &listener = *this;
        m_player = std::make_unique<replay::ReplayPlayer>(listener, m_timing, m_clock, m_audio.get());
        m_replayStarted = false;
    }
    m_player->execute(command);
    // A command that was given before the loss was known must not wait for good.
    if (m_replayLost && !m_player->isIdle()) {
        m_replayLost = false;
        Q_EMIT failed(m_replayOrder, PlaybackError(PlaybackError::StreamLost), false);
    }
}

void StreamWorker::openReplay(const StreamOrder &order, bool sameTrack)
{
    if (!m_player)
        return;
    m_mask = order.endpoint.privacyMask;
    m_replayEndpoint = order.endpoint;
    m_replayOrder = order.number;
    m_replayLost = false;
    m_replayStarted = false;
    if (m_audio) {
        m_audio->setEndpoint(order.endpoint);
        if (!sameTrack)
            m_audio->forget();
    }
    m_player->open(order.endpoint, sameTrack);
}

void StreamWorker::closeReplay()
{
    if (!m_player)
        return;
    // It may be in the middle of a call.
    m_player->close();
    m_player.release()->deleteLater();
}

void StreamWorker::setHeld(bool held)
{
    m_held = held;
    ++m_liveRun;
    for (Entry *entry : {&m_current, &m_next}) {
        if (entry->source)
            entry->source->setHeld(held);
    }
    updateAudible();
}

void StreamWorker::setPrivacyMask(const QByteArray &mask)
{
    m_mask = mask;
}

void StreamWorker::setBusy(bool busy)
{
    if (std::exchange(m_busy, busy) != busy)
        m_gate->setBusy(busy);
}

void StreamWorker::reportError(const PlaybackError &error)
{
    m_gate->setError(error, 0);
}

void StreamWorker::pictureReady(StreamSource &source, SourcePicture picture)
{
    if (m_next.source.get() == &source) {
        retire(m_current);
        m_current = std::exchange(m_next, {});
    }
    if (m_current.source.get() != &source)
        return;
    if (m_player)
        return;
    showLive(source, picture);
    const long long delayMs = delayOf(picture.time, source.endpoint().clockOffsetMs);
    m_gate->setDelay(delayMs);
    if (m_counters) {
        m_counters->pictures.fetch_add(1, std::memory_order_relaxed);
        m_counters->delayMs.store(delayMs, std::memory_order_relaxed);
    }
    if (!std::exchange(m_current.started, true)) {
        updateAudible();
        setBusy(false);
        Q_EMIT started(m_current.order);
    }
}

void StreamWorker::showLive(const StreamSource &source, SourcePicture picture)
{
    const Time300 time = rtp::toTime300(picture.time);
    const std::chrono::milliseconds delay = m_audio ? m_audio->pictureDelay() : std::chrono::milliseconds(0);
    if (delay.count() == 0) {
        show(std::move(picture.image), time, picture.key, source.endpoint(), source.codecName());
        return;
    }
    const auto later = [this, run = m_liveRun, picture = std::move(picture), time, endpoint = source.endpoint(),
                        codec = source.codecName()] {
        // One that came later and did not wait is not followed by an older one.
        if (run == m_liveRun && !m_held && time > m_position->load(std::memory_order_relaxed))
            show(picture.image, time, picture.key, endpoint, codec);
    };
    QTimer::singleShot(delay, Qt::PreciseTimer, this, later);
}

void StreamWorker::show(Image image, Time300 time, bool key, const MediaEndpoint &endpoint, const QByteArray &codec)
{
    if (m_soundOnly) {
        m_position->store(time, std::memory_order_relaxed);
        return;
    }
    image.setTime(time);
    image.setTimeZone(endpoint.timeZone);
    image.setFlags(key ? KeyFrameFlag : 0);
    image.setExtension(ImageHeaderExtension::Codec, codec);
    m_rate.add(time);
    if (std::optional<FrameFacts> facts = FrameFacts::fromBytes(image.extension(FrameFactsExtension))) {
        facts->framesPerSecond = m_rate.perSecond();
        image.setExtension(FrameFactsExtension, facts->toBytes());
    }
    if (!m_mask.isEmpty()) {
        image.setExtension(ImageHeaderExtension::PrivacyMask, m_mask);
        m_maskShown = true;
    } else if (m_maskShown) {
        // Receivers keep the last mask that they saw: one that was removed has to be said.
        static const QByteArray NoMask = Mask::encode({}).toUtf8();
        image.setExtension(ImageHeaderExtension::PrivacyMask, NoMask);
    }
    m_position->store(time, std::memory_order_relaxed);
    m_gate->setVideoFrame(VideoFrame(image, ++m_frameId, m_streamId));
}

void StreamWorker::showRecorded(const Image &image, Time300 time, bool key)
{
    show(image, time, key, m_replayEndpoint, m_player->codecName());
    setBusy(false);
    if (!std::exchange(m_replayStarted, true))
        Q_EMIT started(m_replayOrder);
}

void StreamWorker::replayWaits(bool waiting)
{
    setBusy(waiting);
}

void StreamWorker::limitReached(PlaybackState::Limit limit)
{
    Q_EMIT recordedLimit(limit);
}

void StreamWorker::gapSkipped(Time300 begin, Time300 end)
{
    Q_EMIT recordedGap(begin, end);
}

void StreamWorker::arrived(quint32 run, Time300 time)
{
    Q_EMIT recordedTargetShown(run, time);
}

void StreamWorker::commandRefused(quint32 run, const PlaybackError &error)
{
    setBusy(false);
    Q_EMIT recordedRefused(run, error);
}

void StreamWorker::replayFailed(const PlaybackError &error, bool idle)
{
    if (idle) {
        m_replayLost = true;
        Q_EMIT recordedLost(m_replayOrder);
        return;
    }
    setBusy(true);
    Q_EMIT failed(m_replayOrder, error, false);
}

void StreamWorker::sourceFailed(StreamSource &source, const PlaybackError &error)
{
    if (m_next.source.get() == &source) {
        const quint32 order = m_next.order;
        retire(m_next);
        if (!m_current.source && !m_player)
            setBusy(true);
        Q_EMIT failed(order, error, m_current.source != nullptr);
    } else if (m_current.source.get() == &source) {
        const quint32 order = m_current.order;
        retire(m_current);
        if (!m_player)
            setBusy(true);
        // With a second one on its way nothing needs to be tried again.
        if (!m_next.source)
            Q_EMIT failed(order, error, false);
    }
}

void StreamWorker::retire(Entry &entry)
{
    if (!entry.source)
        return;
    entry.source->close();
    m_retired.push_back(std::move(entry.source));
    entry = {};
    QMetaObject::invokeMethod(this, [this] { m_retired.clear(); }, Qt::QueuedConnection);
}

} // namespace orrin
