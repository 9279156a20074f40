// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/playbackstate.h>

namespace orrin {

PlaybackState::PlaybackState(QObject *parent) : QObject(parent) {}
PlaybackState::~PlaybackState() = default;

void PlaybackState::setMode(PlayMode mode)
{
    if (m_mode == mode)
        return;
    m_mode = mode;
    Q_EMIT playModeChanged(mode);
}

void PlaybackState::setSeekSpeed(int speed)
{
    if (m_seekSpeed == speed)
        return;
    m_seekSpeed = speed;
    Q_EMIT stateChanged(Property::SeekSpeed);
}

void PlaybackState::setLimit(Limit limit)
{
    if (m_limit == limit)
        return;
    m_limit = limit;
    Q_EMIT stateChanged(Property::Limit);
}

void PlaybackState::setGap(Time300 begin, Time300 end)
{
    m_gapBegin = begin;
    m_gapEnd = end;
    Q_EMIT stateChanged(Property::Gap);
}

} // namespace orrin
