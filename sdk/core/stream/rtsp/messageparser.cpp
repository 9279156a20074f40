// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/rtsp/messageparser.h"

#include <algorithm>
#include <cstring>

namespace orrin::rtsp {

namespace {

constexpr std::size_t InterleavedHeader = 4;
constexpr char InterleavedMark = '$';

bool isMethodCharacter(char c)
{
    return (c >= 'A' && c <= 'Z') || c == '_';
}

// "RTSP/1.0 200 OK" or "METHOD uri RTSP/1.0"; what is there may be the beginning of such a line only.
bool mayBeFirstLine(QByteArrayView line, bool whole)
{
    constexpr QByteArrayView Version = "RTSP/";
    const QByteArrayView start = line.first(std::min(line.size(), Version.size()));
    if (start == Version.first(start.size()) && (whole ? line.size() > Version.size() : true))
        return true;
    qsizetype method = 0;
    while (method < line.size() && isMethodCharacter(line[method]))
        ++method;
    if (method == line.size())
        return !whole && method <= 32;
    return method >= 3 && method <= 32 && line[method] == ' ' && (!whole || line.contains(" RTSP/"));
}

} // namespace

std::span<char> MessageParser::prepare(std::size_t size)
{
    if (m_begin > 0 && m_buffer.size() - m_end < size) {
        std::memmove(m_buffer.data(), m_buffer.data() + m_begin, m_end - m_begin);
        m_end -= m_begin;
        m_begin = 0;
    }
    if (m_buffer.size() - m_end < size)
        m_buffer.resize(std::max(m_end + size, 2 * m_buffer.size()));
    return {m_buffer.data() + m_end, size};
}

void MessageParser::commit(std::size_t size)
{
    m_end += std::min(size, m_buffer.size() - m_end);
}

void MessageParser::feed(QByteArrayView bytes)
{
    const auto place = prepare(std::size_t(bytes.size()));
    std::copy(bytes.begin(), bytes.end(), place.begin());
    commit(place.size());
}

std::span<const std::uint8_t> MessageParser::payload() const
{
    return {reinterpret_cast<const std::uint8_t *>(m_buffer.data() + m_payloadOffset), m_payloadSize};
}

void MessageParser::reset()
{
    const int channels = m_channelCount;
    *this = MessageParser();
    m_channelCount = channels;
}

void MessageParser::consume(std::size_t bytes)
{
    m_begin += bytes;
    m_scanned = 0;
    m_headBytes = 0;
    if (m_begin == m_end)
        m_begin = m_end = 0;
}

MessageParser::Event MessageParser::next()
{
    while (!m_failed && m_begin < m_end) {
        const char first = m_buffer[m_begin];
        if (first == '\r' || first == '\n') {
            consume(1);
            continue;
        }
        const bool interleaved = first == InterleavedMark;
        const Step step = interleaved ? readInterleaved() : readMessage();
        if (step == Step::NeedsMore)
            return Event::NeedsMore;
        if (step == Step::Found) {
            m_garbageRun = 0;
            m_resynchronising = false;
            return interleaved ? Event::Interleaved : Event::Message;
        }
        if (step == Step::Error || !skipGarbage())
            m_failed = true;
    }
    return m_failed ? Event::Error : Event::NeedsMore;
}

MessageParser::Step MessageParser::readInterleaved()
{
    const QByteArrayView bytes = pending();
    if (bytes.size() >= 2 && std::uint8_t(bytes[1]) >= m_channelCount)
        return Step::Skip;
    if (bytes.size() < qsizetype(InterleavedHeader))
        return Step::NeedsMore;
    const std::size_t size = std::size_t(std::uint8_t(bytes[2])) << 8 | std::uint8_t(bytes[3]);
    // In garbage a mark alone says little: RTP and RTCP alike begin with version 2.
    if (m_resynchronising) {
        if (size < 8)
            return Step::Skip;
        if (bytes.size() <= qsizetype(InterleavedHeader))
            return Step::NeedsMore;
        if ((std::uint8_t(bytes[InterleavedHeader]) >> 6) != 2)
            return Step::Skip;
    }
    if (std::size_t(bytes.size()) < InterleavedHeader + size)
        return Step::NeedsMore;
    m_channel = std::uint8_t(bytes[1]);
    m_payloadOffset = m_begin + InterleavedHeader;
    m_payloadSize = size;
    // The payload stays where it is until the next prepare().
    m_begin += InterleavedHeader + size;
    m_scanned = 0;
    return Step::Found;
}

MessageParser::Step MessageParser::readMessage()
{
    const QByteArrayView bytes = pending();
    if (m_headBytes == 0) {
        const qsizetype lineEnd = bytes.indexOf('\n');
        const QByteArrayView line = lineEnd < 0 ? bytes : bytes.first(lineEnd);
        if (!mayBeFirstLine(line, lineEnd >= 0))
            return Step::Skip;
        const qsizetype end = findHeaderEnd(bytes);
        if (end < 0)
            return std::size_t(bytes.size()) > MaxHeaderBytes ? Step::Error : Step::NeedsMore;
        if (std::size_t(end) > MaxHeaderBytes || !parseHead(bytes.first(end)))
            return Step::Error;
        m_headBytes = end;
    }
    const qsizetype body = bodySize();
    if (body < 0 || std::size_t(body) > MaxBodyBytes)
        return Step::Error;
    if (bytes.size() < m_headBytes + body)
        return Step::NeedsMore;
    m_message.body = bytes.sliced(m_headBytes, body).toByteArray();
    consume(std::size_t(m_headBytes + body));
    return Step::Found;
}

// Skips at least one byte, up to the next place that may begin something.
bool MessageParser::skipGarbage()
{
    m_resynchronising = true;
    const QByteArrayView bytes = pending();
    qsizetype at = 1;
    while (at < bytes.size() && bytes[at] != InterleavedMark && !isMethodCharacter(bytes[at]))
        ++at;
    consume(std::size_t(at));
    m_garbageRun += std::size_t(at);
    m_garbageTotal += std::size_t(at);
    return m_garbageRun <= MaxGarbage;
}

// The position behind the empty line, or -1. Lines may end in a bare line feed.
qsizetype MessageParser::findHeaderEnd(QByteArrayView bytes)
{
    qsizetype at = qsizetype(m_scanned);
    while ((at = bytes.indexOf('\n', at)) >= 0) {
        qsizetype after = at + 1;
        if (after < bytes.size() && bytes[after] == '\r')
            ++after;
        if (after >= bytes.size())
            break;
        if (bytes[after] == '\n')
            return after + 1;
        ++at;
    }
    m_scanned = at < 0 ? std::size_t(bytes.size()) : std::size_t(at);
    return -1;
}

bool MessageParser::parseHead(QByteArrayView head)
{
    m_message = Message();
    bool firstLine = true;
    while (!head.isEmpty()) {
        const qsizetype lineEnd = head.indexOf('\n');
        QByteArrayView line = lineEnd < 0 ? head : head.first(lineEnd);
        head = lineEnd < 0 ? QByteArrayView() : head.sliced(lineEnd + 1);
        const bool continued = !line.isEmpty() && (line.front() == ' ' || line.front() == '\t');
        line = line.trimmed();
        if (line.isEmpty())
            continue;
        if (firstLine) {
            firstLine = false;
            const QList<QByteArray> words = line.toByteArray().split(' ');
            if (words.size() < 2)
                return false;
            if (line.startsWith("RTSP/")) {
                bool ok = false;
                m_message.status = words[1].toInt(&ok);
                if (!ok || m_message.status < 100 || m_message.status > 999)
                    return false;
            } else {
                m_message.method = words[0];
                m_message.uri = words[1];
            }
        } else if (continued && !m_message.headers.isEmpty()) {
            m_message.headers.last().second += ' ' + line.toByteArray();
        } else if (!parseHeader(line)) {
            return false;
        }
    }
    return !firstLine;
}

bool MessageParser::parseHeader(QByteArrayView line)
{
    const qsizetype colon = line.indexOf(':');
    // A line that is no header does no harm; devices have been seen to send them.
    if (colon <= 0)
        return true;
    if (m_message.headers.size() >= MaxHeaders)
        return false;
    m_message.headers.append({line.first(colon).trimmed().toByteArray().toLower(),
                              line.sliced(colon + 1).trimmed().toByteArray()});
    return true;
}

qsizetype MessageParser::bodySize() const
{
    const QByteArray length = m_message.header("content-length");
    if (length.isEmpty())
        return 0;
    bool ok = false;
    const qlonglong value = length.toLongLong(&ok);
    return ok && value >= 0 ? qsizetype(value) : -1;
}

} // namespace orrin::rtsp
