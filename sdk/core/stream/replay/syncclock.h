// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>
#include <contract/util/time300.h>

#include <QtTypes>

#include <chrono>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <vector>

namespace orrin::replay {

/*! The clock by which recorded frames are shown: of one stream, or of all streams of a sync context at once. Safe from any thread; nothing is called
    under its lock.

    A run begins with prepare() and stands until all members are ready, two seconds at most; then time goes on at the run's rate. A member that
    waits for data holds the clock, for a while; when all members stand before a gap, the clock jumps over it. */
class ORRINSDK_CORE_EXPORT SyncClock
{
public:
    /*! So long before the frame behind a gap the clock arrives. */
    static constexpr std::chrono::milliseconds JumpLead{60};

    using Instant = std::chrono::steady_clock::time_point;
    using Member = int;

    /*! How long members wait for one that is not ready or without data. */
    static constexpr std::chrono::milliseconds Patience{2000};
    /*! A gap shorter than that in real time is waited for. */
    static constexpr std::chrono::milliseconds WorthSkipping{400};

    /*! \a wake is called when the clock begins to go, goes on, or jumps; from any thread. */
    Member join(std::function<void()> wake);
    void leave(Member member);

    /*! A new run: the clock stands at \a from. A rate of 0 stands still for good. */
    void prepare(quint32 run, Time300 from, double rate);
    quint32 run() const;
    double rate() const;
    int members() const;

    /*! The member has its next frame, which is at \a next. */
    void ready(Member member, quint32 run, Time300 next);
    /*! The member has shown all that there is, and nobody waits for it. */
    void rest(Member member);
    /*! The member has no data. True while the clock waits for it. */
    bool hold(Member member);
    /*! The member has shown a frame: it has data and stands before no gap. */
    void release(Member member);
    /*! The member's next frame lies at \a next, behind a gap. True when the clock has jumped right before it. */
    bool offerJump(Member member, Time300 next);
    /*! A member that is alone is late by more than it can make up for: time goes on from \a now. False in company. */
    bool restartAt(Member member, Time300 now);

    /*! When a frame of that moment is to be shown; nothing while the clock stands or another run has begun. */
    std::optional<Instant> due(quint32 run, Time300 frame) const;
    /*! The moment that is shown now. */
    Time300 now() const;

private:
    struct State
    {
        std::function<void()> wake;
        bool ready = false;
        bool resting = false;
        std::optional<Instant> holdingSince;
        std::optional<Time300> next;
        std::optional<Time300> beyondGap;
    };
    using Lock = std::unique_lock<std::mutex>;

    Time300 mediaNow(Instant at) const;
    void freeze(Instant at);
    void thaw(Instant at);
    void startIfReady();
    void goOnIfFree(Instant at);
    bool jumpIfAllWait(Instant at);
    /*! Releases the lock and wakes all members. */
    void wakeAll(Lock &lock);

    mutable std::mutex m_mutex;
    std::map<Member, State> m_members;
    Member m_lastMember = 0;
    quint32 m_run = 0;
    double m_rate = 0.0;
    double m_media = 0.0; // at m_wall, or where it stands
    Instant m_wall;
    Instant m_prepared;
    bool m_started = false;
    bool m_going = false;
};

} // namespace orrin::replay
