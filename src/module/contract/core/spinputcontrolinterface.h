// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/spmoduletype.h>
#include <contract/util/time300.h>

namespace orrin {

/*! Commands to a running stream. Main thread; each returns at once, what comes of it shows in the PlaybackState, the frames and
    the errors of the stream. */
class SPInputControlInterface
{
public:
    /*! The mark that play() and scrub() carry: no request of the caller's own. */
    static constexpr unsigned NoMark = 0xFFFF0000u;
    /*! The position for play() that means: from where the stream is. */
    static constexpr long long FromHere = -4;

    virtual ~SPInputControlInterface() = default;

    virtual void play(long long position, unsigned mark) = 0;
    virtual void live(int mark) = 0;
    virtual void pause(int mark) = 0;
    /*! \a speed is positive, a multiple of real time. */
    virtual void rewind(int speed) = 0;
    virtual void fastForward(int speed) = 0;
    virtual void stepBack() = 0;
    virtual void stepForward() = 0;
    virtual void jumpToStart() = 0;
    virtual void jumpToEnd() = 0;
    /*! Seeks; \a mode 1 shows the frame at that moment and holds the play mode. */
    virtual void jump(Time300 time, int mode) = 0;
    /*! Seeks while dragging: of several that wait, only the newest is done. */
    virtual void scrub(Time300 time, unsigned mark) = 0;
    /*! The rate for play(), 0.1 to 2. */
    virtual void setSpeed(double speed) = 0;
    /*! 1 high, 3 low. */
    virtual void setStreamPreference(int preference) = 0;
    virtual void enableModule(SPModuleType module) = 0;
    virtual void disableModule(SPModuleType module) = 0;

    /*! Which track is played. */
    void setTrackId(unsigned trackId)
    {
        if (m_trackId == trackId)
            return;
        m_trackId = trackId;
        trackIdChanged(trackId);
    }
    unsigned trackId() const { return m_trackId; }

protected:
    virtual void trackIdChanged(unsigned trackId) { Q_UNUSED(trackId) }

private:
    unsigned m_trackId = 1;
};

} // namespace orrin
