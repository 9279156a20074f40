// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "site/site.h"

#include <QByteArray>

#include <cstdint>
#include <map>
#include <optional>

struct AVCodecContext;
struct AVFrame;

namespace orrin::demo {

/*!
    Gives the encoded sound of a camera, packet by packet. Packets lie on a fixed grid like frames: packet n
   holds the samples from n times packetSamples() on, counted from 1970-01-01 UTC. G.711 has packets of 20 ms
   at 8 kHz; AAC has 1024 samples at 16 kHz. One encoder belongs to one thread at a time; packets that follow
   each other are cheap.
*/
class AudioEncoder
{
public:
    AudioEncoder(AudioCodec codec, int camera);
    ~AudioEncoder();
    AudioEncoder(const AudioEncoder &) = delete;
    AudioEncoder &operator=(const AudioEncoder &) = delete;

    /*! False when the codec is not there; packet() then gives nothing. */
    bool isValid() const { return m_valid; }

    static int rate(AudioCodec codec) { return codec == AudioCodec::Aac ? 16000 : 8000; }
    static int packetSamples(AudioCodec codec) { return codec == AudioCodec::Aac ? 1024 : 160; }

    /*! Number of the packet that holds the moment \a timeMs. */
    static std::int64_t packetAt(AudioCodec codec, std::int64_t timeMs);
    /*! When packet \a number begins, in Unix nanoseconds. */
    static std::int64_t timeNsOf(AudioCodec codec, std::int64_t number);

    /*! The AudioSpecificConfig of AAC; empty for the others. */
    QByteArray config() const { return m_config; }

    std::optional<QByteArray> packet(std::int64_t number);

private:
    bool openAac();
    bool feedAac(std::int64_t number);
    std::optional<QByteArray> aacPacket(std::int64_t number);

    const AudioCodec m_codec;
    const int m_camera;
    bool m_valid = false;
    QByteArray m_config;
    AVCodecContext *m_context = nullptr;
    AVFrame *m_frame = nullptr;
    std::int64_t m_fed = -1; // the last number that the AAC encoder was given
    std::map<std::int64_t, QByteArray> m_ready;
};

} // namespace orrin::demo
