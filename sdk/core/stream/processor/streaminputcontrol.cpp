// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/processor/streaminputcontrol.h"

#include <algorithm>

namespace orrin {

namespace {

using Kind = PlaybackCommand::Kind;

constexpr double MinSpeed = 0.1;
constexpr double MaxSpeed = 2.0;

} // namespace

StreamInputControl::StreamInputControl(PlaybackCommandSink &sink, QObject *parent)
    : SPAbstractInputControl(parent)
    , m_sink(sink)
{
}

StreamInputControl::~StreamInputControl() = default;

void StreamInputControl::play(long long position, unsigned)
{
    m_sink.execute({Kind::Play, position, m_speed});
}

void StreamInputControl::live(int)
{
    m_sink.execute({Kind::Live});
}

void StreamInputControl::pause(int)
{
    m_sink.execute({Kind::Pause});
}

void StreamInputControl::rewind(int speed)
{
    if (speed > 0)
        m_sink.execute({Kind::Rewind, FromHere, double(speed)});
}

void StreamInputControl::fastForward(int speed)
{
    if (speed > 0)
        m_sink.execute({Kind::FastForward, FromHere, double(speed)});
}

void StreamInputControl::stepBack()
{
    m_sink.execute({Kind::StepBack});
}

void StreamInputControl::stepForward()
{
    m_sink.execute({Kind::StepForward});
}

void StreamInputControl::jumpToStart()
{
    m_sink.execute({Kind::JumpToStart});
}

void StreamInputControl::jumpToEnd()
{
    m_sink.execute({Kind::JumpToEnd});
}

void StreamInputControl::jump(Time300 time, int)
{
    m_sink.execute({Kind::Jump, time});
}

void StreamInputControl::scrub(Time300 time, unsigned)
{
    m_sink.execute({Kind::Scrub, time});
}

void StreamInputControl::setSpeed(double speed)
{
    m_speed = std::clamp(speed, MinSpeed, MaxSpeed);
}

void StreamInputControl::setStreamPreference(int preference)
{
    m_sink.setStreamPreference(preference);
}

void StreamInputControl::enableModule(SPModuleType module)
{
    m_sink.setModuleEnabled(module, true);
}

void StreamInputControl::disableModule(SPModuleType module)
{
    m_sink.setModuleEnabled(module, false);
}

void StreamInputControl::trackIdChanged(unsigned trackId)
{
    m_sink.selectTrack(trackId);
}

} // namespace orrin
