// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/processor/streamsource.h"

#include "core/stream/processor/streamerrors.h"
#include "core/stream/rtp/codecsetup.h"

#include <QCoreApplication>

#include <utility>

namespace orrin {

namespace {

// That many undecodable units in a row, without one picture between, are no accident of the network.
constexpr int MaxCorruptRun = 60;

rtp::CaptureTime deviceNow(qint64 clockOffsetMs)
{
    using namespace std::chrono;
    return duration_cast<nanoseconds>(system_clock::now().time_since_epoch()) + milliseconds(clockOffsetMs);
}

} // namespace

StreamSource::StreamSource(StreamSourceListener &listener, const StreamTiming &timing, AudioTrack *audio)
    : m_listener(listener)
    , m_timing(timing)
    , m_audio(audio)
    , m_client(*this)
{
}

StreamSource::~StreamSource() = default;

void StreamSource::open(const MediaEndpoint &endpoint)
{
    m_endpoint = endpoint;
    m_open = true;
    m_waitForKey = true;
    m_corruptRun = 0;
    rtsp::ClientSettings settings;
    settings.url = endpoint.url;
    if (endpoint.credentials) {
        settings.user = endpoint.credentials->user;
        settings.password = endpoint.credentials->password;
    }
    settings.trustedKey = endpoint.trustedKey;
    settings.requestTimeout = m_timing.requestTimeout;
    settings.silenceTimeout = m_timing.silenceTimeout;
    m_client.open(settings);
}

void StreamSource::close()
{
    m_open = false;
    m_client.close();
}

void StreamSource::setHeld(bool held)
{
    m_held = held;
    if (held)
        m_waitForKey = true;
}

QList<int> StreamSource::chooseMedia(const rtsp::SessionDescription &description)
{
    QList<int> chosen;
    for (int i = 0; i < description.media.size() && chosen.isEmpty(); ++i) {
        const rtsp::MediaDescription &medium = description.media.at(i);
        const VideoCodec codec = rtp::videoCodecOf(medium);
        if (codec == VideoCodec::Unknown || m_decoder.open(codec) != VideoDecoder::Status::Ok)
            continue;
        m_receiver = std::make_unique<rtp::RtpReceiver>(rtp::createDepacketiser(medium, *this),
                                                        std::uint8_t(medium.payloadType));
        m_clock = rtp::CaptureClock(std::uint32_t(medium.clockRate));
        chosen.append(i);
    }
    if (const int audio = AudioTrack::choose(m_audio, description); audio >= 0 && !chosen.isEmpty())
        chosen.append(audio);
    return chosen;
}

void StreamSource::ready()
{
    m_client.play({{"Range", "npt=0.000-"}});
}

void StreamSource::playing(const rtsp::PlayReply &) {}

void StreamSource::paused() {}

void StreamSource::rtpPacket(int track, std::span<const std::uint8_t> bytes)
{
    // The source may end while it takes the packet.
    const std::shared_ptr<StreamCounters> counters = m_counters;
    if (counters)
        counters->bytes.fetch_add(bytes.size(), std::memory_order_relaxed);
    if (track > 0) {
        if (!m_held)
            m_audio->rtpPacket(bytes);
        return;
    }
    m_receiver->packet(bytes);
    if (counters && m_receiver->lostPackets() > m_countedLosses) {
        const quint64 lost = m_receiver->lostPackets();
        counters->packetsLost.fetch_add(lost - m_countedLosses, std::memory_order_relaxed);
        m_countedLosses = lost;
    }
}

void StreamSource::rtcpPacket(int track, std::span<const std::uint8_t> bytes)
{
    if (track > 0) {
        m_audio->rtcpPacket(bytes);
        return;
    }
    const rtp::RtcpPacket packet = rtp::RtcpPacket::parse(bytes);
    if (packet.senderReport)
        m_clock.senderReport(*packet.senderReport);
    if (packet.bye)
        fail(PlaybackError(PlaybackError::StreamLost,
                           QCoreApplication::translate("orrin::StreamSource", "The server ended the stream.")));
}

void StreamSource::failed(const rtsp::Failure &failure)
{
    fail(playbackErrorOf(failure));
}

void StreamSource::fail(const PlaybackError &error)
{
    if (!m_open)
        return;
    close();
    m_listener.sourceFailed(*this, error);
}

void StreamSource::accessUnitReady(const rtp::AccessUnit &unit)
{
    if (!m_open || m_held || unit.data.empty())
        return;
    if (!isDecodable(unit)) {
        ++m_dropped;
        return;
    }
    if (m_soundOnly)
        m_listener.pictureReady(*this, {Image(), m_clock.timeOf(unit, deviceNow(m_endpoint.clockOffsetMs)), unit.key});
    else
        decode(unit);
}

bool StreamSource::isDecodable(const rtp::AccessUnit &unit)
{
    if (unit.damaged || (unit.lost && !unit.key))
        m_waitForKey = true;
    if (unit.damaged || (m_waitForKey && !unit.key))
        return false;
    m_waitForKey = false;
    return true;
}

void StreamSource::decode(const rtp::AccessUnit &unit)
{
    const qint64 tag = m_units++;
    m_facts[std::size_t(tag) % m_facts.size()] = {m_clock.timeOf(unit, deviceNow(m_endpoint.clockOffsetMs)), unit.key};
    VideoDecoder::Status status = m_decoder.send(unit.data, tag);
    while (status == VideoDecoder::Status::Ok && m_open) {
        SourcePicture picture;
        std::int64_t pictureTag = tag;
        status = m_decoder.receive(&picture.image, &pictureTag);
        if (status != VideoDecoder::Status::Ok)
            break;
        m_corruptRun = 0;
        // Without a tag of its own the picture is the newest one's.
        const bool known = pictureTag <= tag && tag - pictureTag < qint64(m_facts.size()) && pictureTag >= 0;
        const UnitFacts &facts = m_facts[std::size_t(known ? pictureTag : tag) % m_facts.size()];
        picture.time = facts.time;
        picture.key = facts.key;
        m_listener.pictureReady(*this, std::move(picture));
    }
    if (m_open && status != VideoDecoder::Status::Ok && status != VideoDecoder::Status::NeedsMore)
        noteDecodeError(status);
}

void StreamSource::noteDecodeError(VideoDecoder::Status status)
{
    switch (status) {
    case VideoDecoder::Status::TooLarge:
    case VideoDecoder::Status::Unsupported:
        fail(PlaybackError(PlaybackError::Unsupported));
        return;
    case VideoDecoder::Status::NoMemory:
        fail(PlaybackError(PlaybackError::StreamLost));
        return;
    case VideoDecoder::Status::Ok:
    case VideoDecoder::Status::NeedsMore:
    case VideoDecoder::Status::Corrupt:
        break;
    }
    m_waitForKey = true;
    if (++m_corruptRun >= MaxCorruptRun)
        fail(PlaybackError(PlaybackError::Corrupt));
}

} // namespace orrin
