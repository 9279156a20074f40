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

} // namespace orrin
