// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>
#include <contract/core/playmode.h>

#include <QObject>

namespace orrin {

/*! The playback state of one stream. On the thread of its stream processor. */
class ORRINSDK_CORE_EXPORT PlaybackState : public QObject
{
    Q_OBJECT
public:
    enum class Property : int { SeekSpeed = 0, Recording = 1, StreamPreference = 2 };
    Q_ENUM(Property)

    explicit PlaybackState(QObject *parent = nullptr);
    ~PlaybackState() override;

    PlayMode mode() const { return m_mode; }
    /*! The speed of fast forward and rewind as a multiple of real time, signed; 1 in normal play, 0 in pause. */
    int seekSpeed() const { return m_seekSpeed; }

    /*! For the stream processor. Each emits its signal on a change. */
    void setMode(PlayMode mode);
    void setSeekSpeed(int speed);

Q_SIGNALS:
    void playModeChanged(orrin::PlayMode mode);
    void stateChanged(orrin::PlaybackState::Property property);

private:
    PlayMode m_mode = PlayMode::Stopped;
    int m_seekSpeed = 0;
};

} // namespace orrin
