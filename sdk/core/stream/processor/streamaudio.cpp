// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/processor/streamaudio.h"

#include "core/stream/rtp/audiosetup.h"

#include <contract/codecs/videoframe.h>

#include <algorithm>
#include <utility>

namespace orrin {

using namespace std::chrono_literals;

namespace {

constexpr auto TickInterval = 10ms;
// Units up to that length need no help.
constexpr auto ShortUnit = 20ms;
constexpr auto LongestPictureDelay = 100ms;
// Sound that is later than that is left out.
constexpr auto MaxLateness = 120ms;
// Two units whose moments lie farther apart do not follow each other.
constexpr auto MaxStep = 200ms;
// How far behind the clock units are kept, for a step back to them.
constexpr auto KeptBehind = 10s;

rtp::CaptureTime deviceNow(qint64 clockOffsetMs)
{
    using namespace std::chrono;
    return duration_cast<nanoseconds>(system_clock::now().time_since_epoch()) + milliseconds(clockOffsetMs);
}

rtp::CaptureTime momentOf(Time300 time)
{
    return std::chrono::milliseconds(time * 10 / 3);
}

} // namespace

StreamAudio::StreamAudio(std::shared_ptr<OutputGate> gate, quint16 streamId, std::shared_ptr<replay::SyncClock> clock)
    : m_gate(std::move(gate))
    , m_streamId(streamId)
    , m_clock(std::move(clock))
{
}

StreamAudio::~StreamAudio() = default;

bool StreamAudio::open(const rtsp::MediaDescription &medium)
{
    const AudioFormat format = rtp::audioFormatOf(medium);
    if (format.codec == AudioCodec::Unknown || m_decoder.open(format) != AudioDecoder::Status::Ok)
        return false;
    m_depacketiser = rtp::createAudioDepacketiser(medium, *this);
    m_captureClock = rtp::CaptureClock(std::uint32_t(medium.clockRate));
    return m_depacketiser != nullptr;
}

void StreamAudio::setRecorded(bool recorded)
{
    if (std::exchange(m_recorded, recorded) == recorded)
        return;
    m_audible = false;
    forget();
}

void StreamAudio::forget()
{
    m_waiting.clear();
    reset();
    schedule();
}

void StreamAudio::setEnabled(bool enabled)
{
    m_enabled = enabled;
    schedule();
}

void StreamAudio::setAudible(bool audible)
{
    m_audible = audible;
    schedule();
}

std::chrono::milliseconds StreamAudio::pictureDelay() const
{
    const bool live = !m_recorded && isHeard() && m_unitLength > ShortUnit;
    return live ? std::min<std::chrono::milliseconds>(m_unitLength - ShortUnit, LongestPictureDelay) : 0ms;
}

void StreamAudio::reset()
{
    if (m_depacketiser)
        m_depacketiser->reset();
    m_decoder.flush();
}

void StreamAudio::rtpPacket(std::span<const std::uint8_t> bytes)
{
    if (m_depacketiser)
        m_depacketiser->packet(bytes);
}

void StreamAudio::rtcpPacket(std::span<const std::uint8_t> bytes)
{
    const rtp::RtcpPacket packet = rtp::RtcpPacket::parse(bytes);
    if (packet.senderReport)
        m_captureClock.senderReport(*packet.senderReport);
}

void StreamAudio::accessUnitReady(const rtp::AccessUnit &unit)
{
    const rtp::CaptureTime time = m_captureClock.timeOf(unit, deviceNow(m_endpoint.clockOffsetMs));
    if (m_recorded)
        keep(time, unit);
    // While two qualities of a camera are open, each brings the sound.
    else if (isHeard() && (time > m_lastPlayed || time < m_lastPlayed - 1s))
        play(time, unit.data, !unit.lost);
}

void StreamAudio::keep(rtp::CaptureTime time, const rtp::AccessUnit &unit)
{
    m_waiting.insert_or_assign(time, unit.data);
    if (m_waiting.size() > MaxWaiting) {
        // The end that is farther from where the clock is.
        const rtp::CaptureTime now = momentOf(m_clock->now());
        const bool dropFirst = now - m_waiting.begin()->first > std::prev(m_waiting.end())->first - now;
        m_waiting.erase(dropFirst ? m_waiting.begin() : std::prev(m_waiting.end()));
    }
    schedule();
}

void StreamAudio::schedule()
{
    const bool wanted = m_recorded && isHeard() && !m_waiting.empty();
    if (!wanted) {
        if (m_timer)
            m_timer->stop();
        return;
    }
    if (!m_timer) {
        m_timer = std::make_unique<QTimer>();
        m_timer->setTimerType(Qt::PreciseTimer);
        m_timer->setInterval(TickInterval);
        QObject::connect(m_timer.get(), &QTimer::timeout, m_timer.get(), [this] { playDue(); });
    }
    if (!m_timer->isActive())
        m_timer->start();
}

void StreamAudio::playDue()
{
    const rtp::CaptureTime now = momentOf(m_clock->now());
    m_waiting.erase(m_waiting.begin(), m_waiting.lower_bound(now - KeptBehind));
    // A clock that stands, or goes at another rate, is for pictures alone.
    if (m_clock->rate() != 1.0 || !m_clock->due(m_clock->run(), m_clock->now()))
        return;
    auto unit = m_waiting.lower_bound(now - MaxLateness);
    for (; unit != m_waiting.end() && unit->first <= now + Lead; unit = m_waiting.erase(unit))
        play(unit->first, unit->second, true);
    if (m_waiting.empty())
        schedule();
}

void StreamAudio::play(rtp::CaptureTime time, std::span<const std::uint8_t> data, bool follows)
{
    const bool step = time < m_lastPlayed || time - m_lastPlayed > MaxStep;
    if (!follows || step)
        m_decoder.flush();
    m_lastPlayed = time;
    Image image;
    if (m_decoder.decode(data, &image) != AudioDecoder::Status::Ok || image.isNull())
        return;
    const qint64 samples = image.audioPayload().size() / (2 * image.channels());
    m_unitLength = std::chrono::milliseconds(samples * 1000 / image.sampleRate());
    image.setTime(rtp::toTime300(time));
    image.setTimeZone(m_endpoint.timeZone);
    m_gate->setVideoFrame(VideoFrame(image, ++m_frameId, m_streamId));
}

} // namespace orrin
