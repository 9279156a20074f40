// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/spinputcontrolinterface.h>

namespace orrin {

/*! A command of the user to a stream, as SPInputControlInterface takes it. A value. */
struct PlaybackCommand
{
    enum class Kind {
        Live,
        Play,
        Pause,
        Rewind,
        FastForward,
        StepBack,
        StepForward,
        JumpToStart,
        JumpToEnd,
        Jump,
        Scrub,
    };

    Kind kind = Kind::Live;
    /*! Play, Jump, Scrub: where to; SPInputControlInterface::FromHere for Play means where the stream is. */
    Time300 time = SPInputControlInterface::FromHere;
    /*! Play: the rate; Rewind and FastForward: the positive multiple of real time. */
    double speed = 1.0;

    friend bool operator==(const PlaybackCommand &, const PlaybackCommand &) = default;
};

/*! Carries commands out. Main thread. */
class PlaybackCommandSink
{
public:
    virtual ~PlaybackCommandSink() = default;
    virtual void execute(const PlaybackCommand &command) = 0;
    virtual void selectTrack(unsigned trackId) = 0;
    /*! 1 high, 3 low; any other value has no effect. */
    virtual void setStreamPreference(int preference) = 0;
    virtual void setModuleEnabled(SPModuleType module, bool enabled) = 0;
};

} // namespace orrin
