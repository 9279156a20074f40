// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/videodecoder.h"
#include "core/session/mediaendpoint.h"
#include "core/stats/streammeter.h"
#include "core/stream/processor/audiotrack.h"
#include "core/stream/processor/streamtiming.h"
#include "core/stream/rtp/captureclock.h"
#include "core/stream/rtp/rtpreceiver.h"
#include "core/stream/rtsp/client.h"

#include <array>
#include <memory>

namespace orrin {

class StreamSource;

/*! A decoded picture and what is known of it. */
struct SourcePicture
{
    Image image;
    rtp::CaptureTime time{};
    bool key = false;
};

/*! Takes what a StreamSource makes. Called on the stream's thread. A call may close the source, none may delete it. */
class StreamSourceListener
{
public:
    virtual ~StreamSourceListener() = default;
    virtual void pictureReady(StreamSource &source, SourcePicture picture) = 0;
    /*! Once; the source is closed. */
    virtual void sourceFailed(StreamSource &source, const PlaybackError &error) = 0;
};

/*! One live stream: connection, depacketising, decoding. Lives on one stream thread and has no thread of its own.

    The first picture is a key frame; after a loss nothing is shown until the next key frame, so that no picture is corrupt. */
class ORRINSDK_CORE_EXPORT StreamSource : private rtsp::ClientListener, private rtp::AccessUnitSink
{
public:
    /*! \a listener and \a audio, which may be null, outlive the source. */
    StreamSource(StreamSourceListener &listener, const StreamTiming &timing, AudioTrack *audio = nullptr);
    ~StreamSource() override;
    StreamSource(const StreamSource &) = delete;
    StreamSource &operator=(const StreamSource &) = delete;

    void open(const MediaEndpoint &endpoint);
    void close();
    /*! Counts data and losses there; null for nowhere. */
    void setCounters(std::shared_ptr<StreamCounters> counters) { m_counters = std::move(counters); }
    /*! Held: the connection stays, nothing is decoded; afterwards it goes on with the next key frame. */
    void setHeld(bool held);
    /*! Pictures are not decoded: those that are reported hold their time alone. Before open(). */
    void setSoundOnly(bool soundOnly) { m_soundOnly = soundOnly; }

    const MediaEndpoint &endpoint() const { return m_endpoint; }
    QByteArray codecName() const { return videoCodecName(m_decoder.codec()); }
    /*! Access units that were not shown because of losses. */
    quint64 droppedUnits() const { return m_dropped; }

private:
    QList<int> chooseMedia(const rtsp::SessionDescription &description) override;
    void ready() override;
    void playing(const rtsp::PlayReply &reply) override;
    void paused() override;
    void rtpPacket(int track, std::span<const std::uint8_t> bytes) override;
    void rtcpPacket(int track, std::span<const std::uint8_t> bytes) override;
    void failed(const rtsp::Failure &failure) override;

    void accessUnitReady(const rtp::AccessUnit &unit) override;

    bool isDecodable(const rtp::AccessUnit &unit);
    void decode(const rtp::AccessUnit &unit);
    void noteDecodeError(VideoDecoder::Status status);
    void fail(const PlaybackError &error);

    struct UnitFacts
    {
        rtp::CaptureTime time{};
        bool key = false;
    };

    StreamSourceListener &m_listener;
    StreamTiming m_timing;
    AudioTrack *m_audio;
    MediaEndpoint m_endpoint;
    rtsp::Client m_client;
    std::unique_ptr<rtp::RtpReceiver> m_receiver;
    rtp::CaptureClock m_clock;
    VideoDecoder m_decoder;
    std::array<UnitFacts, 64> m_facts; // of the units that the decoder may still hold
    qint64 m_units = 0;
    int m_corruptRun = 0;
    quint64 m_dropped = 0;
    std::shared_ptr<StreamCounters> m_counters;
    quint64 m_countedLosses = 0;
    bool m_waitForKey = true;
    bool m_held = false;
    bool m_soundOnly = false;
    bool m_open = false;
};

} // namespace orrin
