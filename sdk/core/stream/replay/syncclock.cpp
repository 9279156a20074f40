// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/replay/syncclock.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace orrin::replay {

namespace {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

constexpr double CountsPerSecond = 300.0;

} // namespace

SyncClock::Member SyncClock::join(std::function<void()> wake)
{
    const Lock lock(m_mutex);
    State state;
    state.wake = std::move(wake);
    // It has no part in the run under way.
    state.resting = true;
    m_members.emplace(++m_lastMember, std::move(state));
    return m_lastMember;
}

void SyncClock::leave(Member member)
{
    Lock lock(m_mutex);
    m_members.erase(member);
    startIfReady();
    goOnIfFree(Clock::now());
    wakeAll(lock);
}

void SyncClock::prepare(quint32 run, Time300 from, double rate)
{
    const Lock lock(m_mutex);
    m_run = run;
    m_rate = rate;
    m_media = double(from);
    m_started = false;
    m_going = false;
    m_prepared = Clock::now();
    for (auto &[id, state] : m_members) {
        state.ready = false;
        state.resting = false;
        state.holdingSince.reset();
        state.next.reset();
        state.beyondGap.reset();
    }
}

quint32 SyncClock::run() const
{
    const Lock lock(m_mutex);
    return m_run;
}

double SyncClock::rate() const
{
    const Lock lock(m_mutex);
    return m_rate;
}

int SyncClock::members() const
{
    const Lock lock(m_mutex);
    return int(m_members.size());
}

void SyncClock::ready(Member member, quint32 run, Time300 next)
{
    Lock lock(m_mutex);
    const auto found = m_members.find(member);
    if (found == m_members.end() || run != m_run)
        return;
    found->second.ready = true;
    found->second.resting = false;
    found->second.next = next;
    const bool wasStarted = m_started;
    startIfReady();
    if (m_started != wasStarted)
        wakeAll(lock);
}

void SyncClock::startIfReady()
{
    if (m_started || m_rate == 0.0)
        return;
    const Instant at = Clock::now();
    bool all = true;
    bool any = false;
    std::optional<Time300> nearest;
    for (const auto &[id, state] : m_members) {
        all = all && (state.ready || state.resting);
        any = any || state.ready;
        if (state.ready && state.next && (!nearest || (*state.next - *nearest) * m_rate < 0))
            nearest = state.next;
    }
    if (!any || (!all && at - m_prepared < Patience))
        return;
    m_started = true;
    m_going = true;
    m_wall = at;
    // When nothing is recorded where the run begins, it begins where something is.
    const double wait = (double(*nearest) - m_media) / m_rate / CountsPerSecond;
    if (wait > Seconds(WorthSkipping).count())
        m_media = double(*nearest);
}

void SyncClock::rest(Member member)
{
    Lock lock(m_mutex);
    const auto found = m_members.find(member);
    if (found == m_members.end() || found->second.resting)
        return;
    State &state = found->second;
    state.resting = true;
    state.holdingSince.reset();
    state.beyondGap.reset();
    const Instant at = Clock::now();
    startIfReady();
    goOnIfFree(at);
    jumpIfAllWait(at);
    wakeAll(lock);
}

bool SyncClock::hold(Member member)
{
    const Lock lock(m_mutex);
    const auto found = m_members.find(member);
    if (found == m_members.end() || !m_started)
        return false;
    const Instant at = Clock::now();
    State &state = found->second;
    if (!state.holdingSince)
        state.holdingSince = at;
    const bool alone = std::ranges::count_if(m_members, [](const auto &each) { return !each.second.resting; }) <= 1;
    if (!alone && at - *state.holdingSince > Patience) {
        // The others have waited long enough.
        goOnIfFree(at);
        return false;
    }
    freeze(at);
    return true;
}

void SyncClock::release(Member member)
{
    Lock lock(m_mutex);
    const auto found = m_members.find(member);
    if (found == m_members.end())
        return;
    found->second.beyondGap.reset();
    if (!std::exchange(found->second.holdingSince, std::nullopt))
        return;
    goOnIfFree(Clock::now());
    wakeAll(lock);
}

bool SyncClock::offerJump(Member member, Time300 next)
{
    Lock lock(m_mutex);
    const auto found = m_members.find(member);
    if (found == m_members.end() || !m_started)
        return false;
    found->second.beyondGap = next;
    if (!jumpIfAllWait(Clock::now()))
        return false;
    wakeAll(lock);
    return true;
}

bool SyncClock::restartAt(Member member, Time300 now)
{
    const Lock lock(m_mutex);
    const bool company = std::ranges::any_of(
        m_members, [member](const auto &each) { return each.first != member && !each.second.resting; });
    if (company || !m_going)
        return false;
    m_media = double(now);
    m_wall = Clock::now();
    return true;
}

std::optional<SyncClock::Instant> SyncClock::due(quint32 run, Time300 frame) const
{
    const Lock lock(m_mutex);
    if (run != m_run || !m_going || m_rate == 0.0)
        return std::nullopt;
    // At the slowest rate a year of recording lasts ten: farther frames are never due.
    const double seconds = std::clamp((double(frame) - m_media) / m_rate / CountsPerSecond, -1e8, 1e8);
    return m_wall + std::chrono::duration_cast<Clock::duration>(Seconds(seconds));
}

Time300 SyncClock::now() const
{
    const Lock lock(m_mutex);
    return mediaNow(Clock::now());
}

Time300 SyncClock::mediaNow(Instant at) const
{
    const double passed = m_going ? Seconds(at - m_wall).count() * m_rate * CountsPerSecond : 0.0;
    return Time300(std::llround(m_media + passed));
}

void SyncClock::freeze(Instant at)
{
    if (!m_going)
        return;
    m_media = double(mediaNow(at));
    m_going = false;
}

void SyncClock::thaw(Instant at)
{
    if (m_going || !m_started)
        return;
    m_wall = at;
    m_going = true;
}

void SyncClock::goOnIfFree(Instant at)
{
    const bool held = std::ranges::any_of(m_members, [at](const auto &each) {
        return each.second.holdingSince && at - *each.second.holdingSince <= Patience;
    });
    if (!held)
        thaw(at);
}

bool SyncClock::jumpIfAllWait(Instant at)
{
    if (!m_started || m_rate == 0.0)
        return false;
    std::optional<Time300> nearest;
    for (const auto &[id, state] : m_members) {
        if (state.resting)
            continue;
        if (!state.beyondGap)
            return false;
        if (!nearest || (*state.beyondGap - *nearest) * m_rate < 0)
            nearest = state.beyondGap;
    }
    if (!nearest)
        return false;
    for (auto &[id, state] : m_members) {
        if (state.beyondGap == nearest)
            state.beyondGap.reset();
    }
    // The last frame before the gap is seen, too.
    m_media = double(*nearest) - m_rate * CountsPerSecond * Seconds(JumpLead).count();
    m_wall = at;
    return true;
}

void SyncClock::wakeAll(Lock &lock)
{
    std::vector<std::function<void()>> calls;
    for (const auto &[id, state] : m_members)
        calls.push_back(state.wake);
    lock.unlock();
    for (const auto &call : calls) {
        if (call)
            call();
    }
}

} // namespace orrin::replay
