// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/replay/gopbuffer.h"

#include <algorithm>
#include <utility>

namespace orrin::replay {

namespace {

// A group without end would never be shown backward; what is behind such a number is dropped.
constexpr std::size_t MaxFrames = 4096;
constexpr std::size_t MaxGroupBytes = 64U << 20;

bool isFull(const Gop &gop)
{
    return gop.frames.size() >= MaxFrames || gop.bytes >= MaxGroupBytes;
}

auto placeOf(const Gop &gop, Time300 time)
{
    const auto timeOf = [&gop](std::uint32_t index) { return gop.frames[index].time; };
    return std::ranges::lower_bound(gop.order, time, {}, timeOf);
}

} // namespace

void GopBuffer::clear()
{
    m_gops.clear();
    m_target.reset();
    m_pending.reset();
    m_bytes = 0;
}

GopBuffer::GopPointer GopBuffer::newGop(CodedFrame frame)
{
    auto gop = std::make_shared<Gop>();
    gop->id = ++m_lastId;
    gop->bytes = frame.data.size();
    gop->frames.push_back(std::move(frame));
    gop->order.push_back(0);
    return gop;
}

void GopBuffer::join(const GopPointer &gop, CodedFrame frame)
{
    gop->bytes += frame.data.size();
    gop->order.insert(placeOf(*gop, frame.time), std::uint32_t(gop->frames.size()));
    gop->frames.push_back(std::move(frame));
}

bool GopBuffer::append(CodedFrame frame)
{
    if (frame.key) {
        m_target.reset();
        if (!m_gops.empty() && frame.time <= m_gops.back()->lastTime()) {
            // Sent once more from its beginning: what is new stands behind what is known.
            const int at = groupAt(frame.time);
            if (at >= 0 && m_gops[std::size_t(at)]->keyTime() == frame.time)
                m_target = m_gops[std::size_t(at)];
            return false;
        }
        if (!m_gops.empty())
            m_gops.back()->complete = true;
        m_bytes += frame.data.size();
        m_target = newGop(std::move(frame));
        m_gops.push_back(m_target);
        return true;
    }
    if (!m_target || m_target != m_gops.back() || isFull(*m_target))
        return false;
    const auto place = placeOf(*m_target, frame.time);
    const bool known = place != m_target->order.end() && m_target->frames[*place].time == frame.time;
    if (known || frame.time < m_target->keyTime())
        return false;
    m_target->complete = false;
    m_bytes += frame.data.size();
    join(m_target, std::move(frame));
    return true;
}

void GopBuffer::finishAppending()
{
    if (!m_gops.empty())
        m_gops.back()->complete = true;
}

bool GopBuffer::prepend(CodedFrame frame)
{
    // Recorders send groups backward and what is inside a group forward; where each picture is a key frame, as in Motion JPEG, some
    // still send several of them as one group. The next group is older than this one.
    const bool sameGroup = m_pending && frame.time > m_pending->lastTime();
    if (frame.key && !sameGroup) {
        finishPrepending();
        m_pending = newGop(std::move(frame));
        return true;
    }
    if (!m_pending || isFull(*m_pending) || frame.time <= m_pending->keyTime())
        return false;
    const auto place = placeOf(*m_pending, frame.time);
    if (place != m_pending->order.end() && m_pending->frames[*place].time == frame.time)
        return false;
    join(m_pending, std::move(frame));
    return true;
}

void GopBuffer::finishPrepending()
{
    const GopPointer gop = std::exchange(m_pending, nullptr);
    if (!gop || (!m_gops.empty() && gop->lastTime() >= m_gops.front()->keyTime()))
        return;
    gop->complete = true;
    m_bytes += gop->bytes;
    m_gops.push_front(gop);
}

int GopBuffer::groupAt(Time300 time) const
{
    const auto behind = std::ranges::upper_bound(m_gops, time, {}, [](const GopPointer &gop) { return gop->keyTime(); });
    return int(behind - m_gops.begin()) - 1;
}

FrameRef GopBuffer::first() const
{
    return m_gops.empty() ? FrameRef() : FrameRef{m_gops.front(), 0};
}

FrameRef GopBuffer::last() const
{
    return m_gops.empty() ? FrameRef() : FrameRef{m_gops.back(), int(m_gops.back()->order.size()) - 1};
}

FrameRef GopBuffer::at(Time300 time) const
{
    const int index = groupAt(time);
    if (index < 0)
        return {};
    const GopPointer &gop = m_gops[std::size_t(index)];
    return {gop, int(placeOf(*gop, time + 1) - gop->order.begin()) - 1};
}

FrameRef GopBuffer::after(Time300 time) const
{
    const int index = groupAt(time);
    if (index >= 0) {
        const GopPointer &gop = m_gops[std::size_t(index)];
        const int place = int(placeOf(*gop, time + 1) - gop->order.begin());
        if (place < int(gop->order.size()))
            return {gop, place};
    }
    return index + 1 < int(m_gops.size()) ? FrameRef{m_gops[std::size_t(index + 1)], 0} : FrameRef();
}

FrameRef GopBuffer::before(Time300 time) const
{
    return at(time - 1);
}

int GopBuffer::groupsAfter(Time300 time) const
{
    return int(m_gops.size()) - 1 - groupAt(time);
}

int GopBuffer::groupsBefore(Time300 time) const
{
    return std::max(groupAt(time), 0);
}

int GopBuffer::framesAfter(Time300 time) const
{
    int frames = 0;
    for (auto gop = m_gops.rbegin(); gop != m_gops.rend() && (*gop)->lastTime() > time; ++gop)
        frames += int((*gop)->order.end() - placeOf(**gop, time + 1));
    return frames;
}

int GopBuffer::framesBefore(Time300 time) const
{
    int frames = 0;
    for (auto gop = m_gops.begin(); gop != m_gops.end() && (*gop)->keyTime() < time; ++gop)
        frames += int(placeOf(**gop, time) - (*gop)->order.begin());
    return frames;
}

Time300 GopBuffer::longestGroup() const
{
    Time300 longest = 0;
    for (std::size_t i = 0; i + 1 < m_gops.size(); ++i) {
        if (m_gops[i]->complete && m_gops[i]->frames.size() > 1)
            longest = std::max(longest, m_gops[i]->lastTime() - m_gops[i]->keyTime());
    }
    return longest;
}

void GopBuffer::trimBefore(Time300 time, int groups)
{
    for (int surplus = groupsBefore(time) - groups; surplus > 0 && m_gops.size() > 1; --surplus) {
        m_bytes -= m_gops.front()->bytes;
        m_gops.pop_front();
    }
}

void GopBuffer::trimAfter(Time300 time, int groups)
{
    for (int surplus = groupsAfter(time) - groups; surplus > 0 && m_gops.size() > 1; --surplus) {
        m_bytes -= m_gops.back()->bytes;
        m_gops.pop_back();
        m_target.reset();
    }
}

} // namespace orrin::replay
