// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>
#include <contract/core/playmode.h>
#include <contract/util/time300.h>

#include <QObject>

namespace orrin {

/*! The playback state of one stream. On the thread of its stream processor. */
class ORRINSDK_CORE_EXPORT PlaybackState : public QObject
{
    Q_OBJECT
public:
    enum class Property : int { SeekSpeed = 0, Recording = 1, StreamPreference = 2, Limit = 3, Gap = 4 };
    Q_ENUM(Property)

    /*! Where recorded video stands in its track. */
    enum class Limit : int {
        Inside = 0,
        Beginning = 1, //!< nothing is recorded before the frame shown
        End = 2        //!< nothing is recorded behind it yet; play goes on when the recording grows
    };
    Q_ENUM(Limit)

    explicit PlaybackState(QObject *parent = nullptr);
    ~PlaybackState() override;

    PlayMode mode() const { return m_mode; }
    /*! The speed of fast forward and rewind as a multiple of real time, signed; 1 in normal play, 0 in pause. */
    int seekSpeed() const { return m_seekSpeed; }

    Limit limit() const { return m_limit; }
    /*! The gap in the recording that play skipped last: the frames before and behind it, in the order of time; 0 before the first one. */
    Time300 gapBegin() const { return m_gapBegin; }
    Time300 gapEnd() const { return m_gapEnd; }

    /*! For the stream processor. Each emits its signal on a change, setGap() each time. */
    void setMode(PlayMode mode);
    void setSeekSpeed(int speed);
    void setLimit(Limit limit);
    void setGap(Time300 begin, Time300 end);

Q_SIGNALS:
    void playModeChanged(orrin::PlayMode mode);
    void stateChanged(orrin::PlaybackState::Property property);

private:
    PlayMode m_mode = PlayMode::Stopped;
    int m_seekSpeed = 0;
    Limit m_limit = Limit::Inside;
    Time300 m_gapBegin = 0;
    Time300 m_gapEnd = 0;
};

} // namespace orrin
