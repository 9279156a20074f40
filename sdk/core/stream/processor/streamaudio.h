// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/audiodecoder.h"
#include "core/session/mediaendpoint.h"
#include "core/stream/processor/audiotrack.h"
#include "core/stream/processor/outputgate.h"
#include "core/stream/replay/syncclock.h"
#include "core/stream/rtp/audiodepacketiser.h"
#include "core/stream/rtp/captureclock.h"

#include <QTimer>

#include <map>
#include <memory>
#include <vector>

namespace orrin {

/*! The sound of a stream: depacketises, decodes, and hands it to the outputs when it is to be heard. Lives on the stream's thread and has no
    thread of its own.

    Live sound goes on as it comes. Recorded sound comes ahead of the picture: coded units are kept by their moment, at most MaxWaiting of them,
    and are decoded when the stream's clock gets there, a little early for what the device needs. While nothing may be heard nothing goes
    on; recorded units that come meanwhile are kept for when play goes on there. */
class ORRINSDK_CORE_EXPORT StreamAudio : public AudioTrack, private rtp::AccessUnitSink
{
public:
    /*! A minute of the shortest packets. */
    static constexpr std::size_t MaxWaiting = 3000;
    /*! So much earlier than its moment sound is handed on; outputs keep about that much before it is heard. */
    static constexpr std::chrono::milliseconds Lead{30};

    StreamAudio(std::shared_ptr<OutputGate> gate, quint16 streamId, std::shared_ptr<replay::SyncClock> clock);
    ~StreamAudio() override;

    /*! Where what comes next is from: its zone, its clock. */
    void setEndpoint(const MediaEndpoint &endpoint) { m_endpoint = endpoint; }
    /*! Recorded sound follows the clock from now on, live sound does not. What waits is forgotten. */
    void setRecorded(bool recorded);
    /*! Off: nothing is heard, whatever the stream does. */
    void setEnabled(bool enabled);
    /*! What waits is of another recording. */
    void forget();

    bool open(const rtsp::MediaDescription &medium) override;
    void rtpPacket(std::span<const std::uint8_t> bytes) override;
    void rtcpPacket(std::span<const std::uint8_t> bytes) override;
    void reset() override;
    void setAudible(bool audible) override;

    /*! Sound comes when its unit is over, a picture at once. A live picture that waits so long is shown close to its sound, where units are
        long. 0 when no live sound is heard. */
    std::chrono::milliseconds pictureDelay() const;

    std::size_t waitingUnits() const { return m_waiting.size(); }

private:
    void accessUnitReady(const rtp::AccessUnit &unit) override;
    bool isHeard() const { return m_audible && m_enabled; }
    void keep(rtp::CaptureTime time, const rtp::AccessUnit &unit);
    void play(rtp::CaptureTime time, std::span<const std::uint8_t> data, bool follows);
    void playDue();
    void schedule();

    const std::shared_ptr<OutputGate> m_gate;
    const quint16 m_streamId;
    const std::shared_ptr<replay::SyncClock> m_clock;
    MediaEndpoint m_endpoint;
    std::unique_ptr<rtp::AudioDepacketiser> m_depacketiser;
    rtp::CaptureClock m_captureClock;
    AudioDecoder m_decoder;
    std::map<rtp::CaptureTime, std::vector<std::uint8_t>> m_waiting;
    rtp::CaptureTime m_lastPlayed{0};
    std::chrono::milliseconds m_unitLength{0};
    bool m_recorded = false;
    bool m_audible = false;
    bool m_enabled = true;
    quint64 m_frameId = 0;
    std::unique_ptr<QTimer> m_timer; // made on the stream's thread
};

} // namespace orrin
