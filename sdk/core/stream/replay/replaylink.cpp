// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/replay/replaylink.h"

#include "core/stream/processor/streamerrors.h"
#include "core/stream/replay/replaytime.h"
#include "core/stream/rtp/codecsetup.h"

#include <QCoreApplication>

#include <utility>

namespace orrin::replay {

namespace {

constexpr std::size_t MaxEarlyUnits = 64;
constexpr std::size_t MaxEarlyBytes = 16U << 20;

// Recorders without a clock of their own in the stream are of no use here: their frames lie at no moment.
constexpr rtp::CaptureTime NoTime = rtp::CaptureTime::min();

} // namespace

ReplayLink::ReplayLink(ReplayLinkListener &listener, const StreamTiming &timing, AudioTrack *audio)
    : m_listener(listener)
    , m_timing(timing)
    , m_audio(audio)
    , m_client(*this)
{
    m_silence.setSingleShot(true);
    QObject::connect(&m_silence, &QTimer::timeout, &m_client, [this] { endRange(); });
}

ReplayLink::~ReplayLink() = default;

void ReplayLink::open(const MediaEndpoint &endpoint)
{
    m_endpoint = endpoint;
    m_state = State::Opening;
    m_marked = 0;
    m_lastMarked = 0;
    m_early.clear();
    m_earlyBytes = 0;
    rtsp::ClientSettings settings;
    settings.url = endpoint.url;
    if (endpoint.credentials) {
        settings.user = endpoint.credentials->user;
        settings.password = endpoint.credentials->password;
    }
    settings.trustedKey = endpoint.trustedKey;
    settings.options = {{"Require", "onvif-replay"}};
    settings.requestTimeout = m_timing.requestTimeout;
    settings.silenceTimeout = std::chrono::milliseconds(0);
    m_client.open(settings);
    m_client.setReading(m_reading);
}

void ReplayLink::close()
{
    m_state = State::Closed;
    m_wanted.reset();
    m_silence.stop();
    m_client.close();
}

void ReplayLink::request(const RangeRequest &range)
{
    m_wanted = range;
    m_resting = false;
    // What is under way stands before the answer.
    setReading(true);
    sendWanted();
}

void ReplayLink::rest()
{
    m_wanted.reset();
    m_silence.stop();
    m_resting = m_state == State::Starting;
    if (m_state != State::Streaming)
        return;
    setReading(true);
    m_state = State::Pausing;
    m_client.pause();
}

void ReplayLink::setReading(bool reading)
{
    // Said again and again it must not put off the end of a silence.
    if (std::exchange(m_reading, reading) == reading)
        return;
    m_client.setReading(reading);
    if (m_state == State::Streaming)
        watchSilence();
}

void ReplayLink::sendWanted()
{
    if (!m_wanted)
        return;
    switch (m_state) {
    case State::Closed:
    case State::Opening:
    case State::Pausing:
    case State::Starting:
        return;
    case State::Streaming:
        m_silence.stop();
        m_state = State::Pausing;
        m_client.pause();
        return;
    case State::Idle:
        break;
    }
    const RangeRequest range = *std::exchange(m_wanted, std::nullopt);
    m_state = State::Starting;
    m_early.clear();
    m_earlyBytes = 0;
    m_goodbye = false;
    m_received = false;
    m_waitForKey = true;
    m_receiver->reset();
    if (m_audio)
        m_audio->reset();
    ++m_requests;
    m_client.play(headersOf(range));
}

QList<rtsp::Message::Header> ReplayLink::headersOf(const RangeRequest &range) const
{
    QList<rtsp::Message::Header> headers{
        {"Rate-Control", "no"},
        {"Immediate", "yes"},
        {"Range", "clock=" + clockText(range.fromMs) + '-' + clockText(range.toMs)},
        {"Scale", range.backward ? "-1.0" : "1.0"},
    };
    if (range.keyFramesOnly)
        headers.append({"Frames", range.keyIntervalMs > 0 ? "intra/" + QByteArray::number(range.keyIntervalMs)
                                                          : QByteArray("intra")});
    return headers;
}

QList<int> ReplayLink::chooseMedia(const rtsp::SessionDescription &description)
{
    QList<int> chosen;
    // A recording may describe several tracks; one that is not named at all takes the first that can be played.
    for (const bool named : {true, false}) {
        for (int i = 0; i < description.media.size() && chosen.isEmpty(); ++i) {
            const rtsp::MediaDescription &medium = description.media.at(i);
            if ((!named || medium.track == m_endpoint.trackToken) && chooseMedium(medium))
                chosen.append(i);
        }
    }
    if (const int audio = AudioTrack::choose(m_audio, description); audio >= 0 && !chosen.isEmpty())
        chosen.append(audio);
    return chosen;
}

bool ReplayLink::chooseMedium(const rtsp::MediaDescription &medium)
{
    const VideoCodec codec = rtp::videoCodecOf(medium);
    if (codec == VideoCodec::Unknown)
        return false;
    m_receiver = std::make_unique<rtp::RtpReceiver>(rtp::createDepacketiser(medium, *this),
                                                    std::uint8_t(medium.payloadType));
    m_clock = rtp::CaptureClock(std::uint32_t(medium.clockRate));
    m_listener.codecKnown(codec);
    return true;
}

void ReplayLink::ready()
{
    m_state = State::Idle;
    sendWanted();
}

void ReplayLink::paused()
{
    if (m_state != State::Pausing)
        return;
    m_state = State::Idle;
    sendWanted();
}

void ReplayLink::playing(const rtsp::PlayReply &reply)
{
    if (m_state != State::Starting)
        return;
    m_state = State::Streaming;
    if (m_wanted) {
        sendWanted();
        return;
    }
    if (m_resting) {
        rest();
        return;
    }
    m_cseq = std::uint8_t(reply.cseq.toUInt());
    m_firstSequence = reply.firstSequence;
    watchSilence();
    const quint64 number = m_requests;
    std::deque<rtp::AccessUnit> early = std::exchange(m_early, {});
    for (const rtp::AccessUnit &unit : early) {
        if (m_state != State::Streaming || m_requests != number)
            return;
        takeUnit(unit);
    }
    if (m_goodbye && m_state == State::Streaming && m_requests == number)
        goodbye();
}

bool ReplayLink::playRefused(const rtsp::Failure &failure)
{
    if (m_state != State::Starting)
        return false;
    m_state = State::Idle;
    if (m_wanted)
        sendWanted();
    else
        m_listener.rangeRefused(playbackErrorOf(failure));
    return true;
}

void ReplayLink::rtpPacket(int track, std::span<const std::uint8_t> bytes)
{
    if (m_state != State::Starting && m_state != State::Streaming)
        return;
    if (track > 0)
        m_audio->rtpPacket(bytes);
    else
        m_receiver->packet(bytes);
}

void ReplayLink::rtcpPacket(int track, std::span<const std::uint8_t> bytes)
{
    if (track > 0) {
        m_audio->rtcpPacket(bytes);
        return;
    }
    const rtp::RtcpPacket packet = rtp::RtcpPacket::parse(bytes);
    if (packet.senderReport)
        m_clock.senderReport(*packet.senderReport);
    if (packet.bye && m_state == State::Starting)
        m_goodbye = true;
    else if (packet.bye && m_state == State::Streaming)
        goodbye();
}

void ReplayLink::failed(const rtsp::Failure &failure)
{
    m_state = State::Closed;
    m_silence.stop();
    m_listener.linkFailed(playbackErrorOf(failure));
}

void ReplayLink::accessUnitReady(const rtp::AccessUnit &unit)
{
    if (m_state == State::Streaming) {
        takeUnit(unit);
        return;
    }
    // Before the answer nobody knows whose they are.
    if (m_state == State::Starting && m_early.size() < MaxEarlyUnits && m_earlyBytes < MaxEarlyBytes) {
        m_earlyBytes += unit.data.size();
        m_early.push_back(unit);
    }
}

bool ReplayLink::isStale(const rtp::AccessUnit &unit) const
{
    if (m_firstSequence && std::int16_t(std::uint16_t(unit.firstSequence - *m_firstSequence)) < 0)
        return true;
    return m_marked >= 2 && unit.cseq && *unit.cseq != m_cseq;
}

void ReplayLink::takeUnit(const rtp::AccessUnit &unit)
{
    if (isStale(unit))
        return;
    m_firstSequence.reset();
    m_received = true;
    watchSilence();
    if (unit.cseq && *unit.cseq == m_cseq && std::exchange(m_lastMarked, m_requests) != m_requests)
        ++m_marked;
    const quint64 number = m_requests;
    if (unit.damaged || (unit.lost && !unit.key))
        m_waitForKey = true;
    const rtp::CaptureTime time = m_clock.timeOf(unit, NoTime);
    const bool usable = !unit.damaged && !unit.data.empty() && time != NoTime && (unit.key || !m_waitForKey);
    if (usable) {
        m_waitForKey = false;
        CodedFrame frame;
        frame.data = unit.data;
        frame.time = rtp::toTime300(time);
        frame.key = unit.key;
        frame.end = unit.end;
        frame.discontinuity = unit.discontinuity;
        const bool isTerminal = unit.terminal;
        if (isPossible(frame.time))
            m_listener.frameReceived(std::move(frame));
        if (!isTerminal)
            return;
    } else if (!unit.terminal) {
        return;
    }
    if (m_state == State::Streaming && m_requests == number)
        endRange();
}

// The one of an empty range that was asked for before may come late: before the first frame it is believed only after a while.
void ReplayLink::goodbye()
{
    if (m_received)
        endRange();
    else
        m_silence.start(m_timing.rangeSilence / 5);
}

void ReplayLink::endRange()
{
    if (m_state != State::Streaming)
        return;
    m_silence.stop();
    if (!m_received)
        m_marked = 0;
    // A recorder that said so itself has nothing to pause; to pause it all the same costs one exchange.
    m_state = State::Pausing;
    m_client.pause();
    m_listener.rangeEnded();
}

void ReplayLink::watchSilence()
{
    if (!m_reading)
        m_silence.stop();
    else
        m_silence.start(m_received ? m_timing.rangeSilence : m_timing.requestTimeout);
}

} // namespace orrin::replay
