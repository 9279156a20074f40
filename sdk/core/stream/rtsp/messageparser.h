// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/stream/rtsp/message.h"

#include <cstdint>
#include <span>
#include <vector>

namespace orrin::rtsp {

/*! Cuts the bytes of an RTSP connection into messages and interleaved packets. Knows no socket; one thread at a time.

    Write bytes into prepare() and say how many by commit(), or use feed(); then call next() until it needs more. Bytes that are
    neither are skipped up to the next place that looks like a message or a packet, at most MaxGarbage between two
    valid ones. The buffer is reused; it never holds more than one whole message beside what was fed. */
class ORRINSDK_CORE_EXPORT MessageParser
{
public:
    static constexpr std::size_t MaxHeaderBytes = 16 * 1024;
    static constexpr std::size_t MaxBodyBytes = 1024 * 1024;
    static constexpr std::size_t MaxGarbage = 64 * 1024;
    static constexpr int MaxHeaders = 128;

    enum class Event {
        NeedsMore,
        Message,
        Interleaved,
        Error, //!< too large, malformed, or too much garbage; stays so until reset()
    };

    /*! Packets of channels from \a count on are garbage; 4 at first. */
    void setChannelCount(int count) { m_channelCount = count; }

    std::span<char> prepare(std::size_t size);
    void commit(std::size_t size);
    void feed(QByteArrayView bytes);

    Event next();

    /*! After Event::Message, until the next call of next(). */
    const Message &message() const { return m_message; }
    /*! After Event::Interleaved, until the next call of next() or prepare(). */
    int channel() const { return m_channel; }
    std::span<const std::uint8_t> payload() const;

    /*! Bytes skipped in all. */
    std::size_t garbageBytes() const { return m_garbageTotal; }
    void reset();

private:
    enum class Step { NeedsMore, Found, Skip, Error };

    QByteArrayView pending() const { return QByteArrayView(m_buffer.data() + m_begin, qsizetype(m_end - m_begin)); }
    void consume(std::size_t bytes);
    Step readInterleaved();
    Step readMessage();
    bool skipGarbage();
    qsizetype findHeaderEnd(QByteArrayView bytes);
    bool parseHead(QByteArrayView head);
    bool parseHeader(QByteArrayView line);
    qsizetype bodySize() const;

    std::vector<char> m_buffer;
    std::size_t m_begin = 0;
    std::size_t m_end = 0;
    std::size_t m_scanned = 0; // bytes of pending() already searched for the end of a head
    qsizetype m_headBytes = 0; // of the message whose body is awaited
    Message m_message;
    int m_channelCount = 4;
    int m_channel = 0;
    std::size_t m_payloadOffset = 0;
    std::size_t m_payloadSize = 0;
    std::size_t m_garbageRun = 0;
    std::size_t m_garbageTotal = 0;
    bool m_resynchronising = false;
    bool m_failed = false;
};

} // namespace orrin::rtsp
