// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/videodecoder.h"
#include "core/session/mediaendpoint.h"
#include "core/stream/processor/audiotrack.h"
#include "core/stream/processor/streamtiming.h"
#include "core/stream/replay/gopbuffer.h"
#include "core/stream/rtp/captureclock.h"
#include "core/stream/rtp/rtpreceiver.h"
#include "core/stream/rtsp/client.h"

#include <QTimer>

#include <deque>
#include <memory>
#include <optional>

namespace orrin::replay {

/*! What a ReplayLink asks a recorder for. A value. */
struct RangeRequest
{
    qint64 fromMs = 0; //!< since 1970 UTC; backward, the later one
    qint64 toMs = 0;
    bool backward = false;
    bool keyFramesOnly = false;
    qint64 keyIntervalMs = 0; //!< between key frames, at least; 0 asks for all of them
};

/*! Takes what a ReplayLink receives. Called on the stream's thread. Each call may close the link or ask for another range, none may delete it. */
class ReplayLinkListener
{
public:
    virtual ~ReplayLinkListener() = default;
    /*! A medium was chosen; frames of that codec follow. */
    virtual void codecKnown(VideoCodec codec) = 0;
    virtual void frameReceived(CodedFrame frame) = 0;
    /*! Of the range asked for last nothing more comes. */
    virtual void rangeEnded() = 0;
    /*! The recorder does not play that range; the link stands. */
    virtual void rangeRefused(const PlaybackError &error) = 0;
    /*! Once; the link is closed. */
    virtual void linkFailed(const PlaybackError &error) = 0;
};

/*! One RTSP session with a recording. Lives on a stream thread.

    Asks for ranges without rate control: the recorder sends as fast as it is read. A new request replaces the one before, of which no frame
    comes any more: what is under way is paused first, and what belongs to an older request is told by the sequence
    numbers and the marks of the frames. A frame is either whole or not there; behind one that is missing the next is a key frame.

    A range ends by the recorder's word (the mark of the last frame, or a goodbye) or by silence. */
class ORRINSDK_CORE_EXPORT ReplayLink : private rtsp::ClientListener, private rtp::AccessUnitSink
{
public:
    /*! \a listener and \a audio, which may be null, outlive the link. */
    ReplayLink(ReplayLinkListener &listener, const StreamTiming &timing, AudioTrack *audio);
    ~ReplayLink() override;

    void open(const MediaEndpoint &endpoint);
    void close();
    bool isOpen() const { return m_state != State::Closed; }

    void request(const RangeRequest &range);
    /*! Nothing is wanted for now. */
    void rest();
    /*! False holds the recorder back. */
    void setReading(bool reading);

    /*! Requests sent so far. */
    quint64 requestCount() const { return m_requests; }

private:
    enum class State {
        Closed,
        Opening,
        Idle,     //!< nothing plays
        Pausing,  //!< PAUSE is on its way
        Starting, //!< PLAY is on its way
        Streaming,
    };

    QList<int> chooseMedia(const rtsp::SessionDescription &description) override;
    void ready() override;
    void playing(const rtsp::PlayReply &reply) override;
    bool playRefused(const rtsp::Failure &failure) override;
    void paused() override;
    void rtpPacket(int track, std::span<const std::uint8_t> bytes) override;
    void rtcpPacket(int track, std::span<const std::uint8_t> bytes) override;
    void failed(const rtsp::Failure &failure) override;
    void accessUnitReady(const rtp::AccessUnit &unit) override;

    bool chooseMedium(const rtsp::MediaDescription &medium);
    void sendWanted();
    QList<rtsp::Message::Header> headersOf(const RangeRequest &range) const;
    void takeUnit(const rtp::AccessUnit &unit);
    bool isStale(const rtp::AccessUnit &unit) const;
    void goodbye();
    void endRange();
    void watchSilence();

    ReplayLinkListener &m_listener;
    const StreamTiming m_timing;
    AudioTrack *m_audio;
    MediaEndpoint m_endpoint;
    rtsp::Client m_client;
    std::unique_ptr<rtp::RtpReceiver> m_receiver;
    rtp::CaptureClock m_clock;
    State m_state = State::Closed;
    std::optional<RangeRequest> m_wanted; // not sent yet
    std::deque<rtp::AccessUnit> m_early;  // came before the answer to their PLAY
    std::size_t m_earlyBytes = 0;
    std::optional<quint16> m_firstSequence; // until a packet of this PLAY has come
    std::uint8_t m_cseq = 0;
    int m_marked = 0; // requests whose frames were marked rightly; two make a recorder that can be believed
    quint64 m_lastMarked = 0;
    bool m_waitForKey = true;
    bool m_received = false; // of this range
    bool m_goodbye = false;  // came before the answer to PLAY
    bool m_reading = true;
    bool m_resting = false; // what the PLAY under way brings is not wanted
    quint64 m_requests = 0;
    QTimer m_silence;
};

} // namespace orrin::replay
