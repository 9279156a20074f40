// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/replay/gopdecoder.h"

#include <algorithm>
#include <iterator>

namespace orrin::replay {

namespace {

using Status = VideoDecoder::Status;

// A frame that fails takes a place too, or none would ever be dropped.
constexpr std::size_t EmptyBytes = 1024;

std::size_t bytesOf(const Image &image)
{
    if (image.isNull())
        return EmptyBytes;
    const std::size_t chroma = std::size_t(image.planes().strideUV) * std::size_t(image.height() / 2);
    return std::size_t(image.planes().strideY) * std::size_t(image.height()) + 2 * chroma;
}

} // namespace

GopDecoder::GopDecoder() = default;
GopDecoder::~GopDecoder() = default;

Status GopDecoder::open(VideoCodec codec)
{
    clear();
    return m_decoder.open(codec);
}

void GopDecoder::clear()
{
    m_pictures.clear();
    m_bytes = 0;
    m_gop = 0;
    m_fed = 0;
}

void GopDecoder::setPlayhead(Time300 time, int direction)
{
    m_playhead = time;
    m_direction = direction;
}

const Image *GopDecoder::cached(const FrameRef &frame) const
{
    const auto found = m_pictures.find({frame.gop->id, frame.index()});
    return found == m_pictures.end() || found->second.image.isNull() ? nullptr : &found->second.image;
}

GopDecoder::Progress GopDecoder::advance(const FrameRef &frame, const QDeadlineTimer &deadline)
{
    const Gop &gop = *frame.gop;
    const Key key{gop.id, frame.index()};
    m_wanted = key;
    const auto found = m_pictures.find(key);
    if (found != m_pictures.end())
        return found->second.image.isNull() ? Progress::Failed : Progress::Ready;
    // A frame that went through the decoder and is not there was dropped for want of place.
    if (m_gop != gop.id || m_drained || std::size_t(key.second) < m_out)
        begin(gop);
    for (;;) {
        if (m_fed < gop.frames.size())
            feed(gop);
        else if (gop.complete && !m_drained)
            drain(gop);
        else
            return Progress::Starved;
        const auto place = m_pictures.find(key);
        if (place != m_pictures.end())
            return place->second.image.isNull() ? Progress::Failed : Progress::Ready;
        if (deadline.hasExpired())
            return Progress::Working;
    }
}

void GopDecoder::begin(const Gop &gop)
{
    m_decoder.flush();
    m_gop = gop.id;
    m_fed = 0;
    m_out = 0;
    m_drained = false;
    m_broken = false;
}

void GopDecoder::feed(const Gop &gop)
{
    const int index = int(m_fed++);
    if (m_broken) {
        keep(gop, index, Image());
        return;
    }
    const Status status = m_decoder.send(gop.frames[std::size_t(index)].data, index);
    ++m_decoded;
    if (status != Status::Ok) {
        // What builds on it would show its damage.
        m_broken = true;
        m_lastError = status;
        keep(gop, index, Image());
    }
    receive(gop);
}

void GopDecoder::receive(const Gop &gop)
{
    for (;;) {
        Image image;
        std::int64_t tag = -1;
        const Status status = m_decoder.receive(&image, &tag);
        if (status != Status::Ok) {
            if (status != Status::NeedsMore)
                m_lastError = status;
            return;
        }
        if (tag >= 0 && std::size_t(tag) < gop.frames.size())
            keep(gop, int(tag), std::move(image));
    }
}

// Pictures that wait for others come now; frames that gave none until now give none at all.
void GopDecoder::drain(const Gop &gop)
{
    m_decoder.drain();
    receive(gop);
    m_decoder.flush();
    m_drained = true;
    for (std::size_t i = 0; i < gop.frames.size(); ++i) {
        if (i >= m_out && !m_pictures.contains({gop.id, int(i)}))
            keep(gop, int(i), Image());
    }
    if (!m_pictures.contains(m_wanted) && m_wanted.first == gop.id)
        keep(gop, m_wanted.second, Image());
}

void GopDecoder::keep(const Gop &gop, int index, Image image)
{
    m_out = std::max(m_out, std::size_t(index) + 1);
    const Key key{gop.id, index};
    if (m_pictures.contains(key))
        return;
    Picture picture{std::move(image), gop.frames[std::size_t(index)].time, 0};
    picture.bytes = bytesOf(picture.image);
    m_bytes += picture.bytes;
    m_pictures.emplace(key, std::move(picture));
    shrink(key);
}

void GopDecoder::shrink(const Key &newest)
{
    const auto rank = [this](const Picture &picture) {
        const Time300 distance = picture.time - m_playhead;
        // Behind the playhead counts as farther than anything ahead, but for the few next to it that a step may want.
        constexpr Time300 Behind = Time300(1) << 50;
        const bool behind = m_direction != 0 && distance * m_direction < 0;
        return std::abs(distance) + (behind ? Behind : 0);
    };
    while (m_bytes > m_budget && m_pictures.size() > 1) {
        auto victim = m_pictures.end();
        for (auto it = m_pictures.begin(); it != m_pictures.end(); ++it) {
            if (it->first != m_wanted && (victim == m_pictures.end() || rank(it->second) > rank(victim->second)))
                victim = it;
        }
        if (victim == m_pictures.end())
            return;
        m_bytes -= victim->second.bytes;
        const bool self = victim->first == newest;
        m_pictures.erase(victim);
        if (self)
            return;
    }
}

} // namespace orrin::replay
