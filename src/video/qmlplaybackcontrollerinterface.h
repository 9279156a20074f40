// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/orrinsdkqmlglobal.h"

#include <contract/core/spmoduletype.h>
#include <contract/util/requestid.h>

#include <QDate>
#include <QDateTime>
#include <QObject>
#include <QString>
#include <QVariant>

#include <functional>
#include <memory>

namespace orrin {

class QmlAbstractStreamProvider;
class QmlPlaybackControllerInterfacePrivate;

/*! The remote control of one stream, for QML. Main thread.

    Finds the stream by its four keys and never owns it. Keeps the wanted speed: 0 holds, up to 2 is normal play at that rate, above 2
    is fast forward, below 0 is rewind. A stream that is not there and a right that the user lacks make a call do nothing; the speed
    may therefore lead the stream. */
class ORRINSDKQML_EXPORT QmlPlaybackControllerInterface : public QObject
{
    Q_OBJECT

    /*! Whether the user of the server may play back. */
    Q_PROPERTY(bool playbackPermitted READ playbackPermitted CONSTANT FINAL)
    Q_PROPERTY(State state READ state NOTIFY stateChanged FINAL)
    /*! A multiple of real time, signed. Without the right to play back only 0 is taken. */
    Q_PROPERTY(double speed READ speed WRITE setSpeed NOTIFY speedChanged FINAL)
    /*! Kept for whoever picks a date and time, -1 while unset; the stream is not told. */
    Q_PROPERTY(int year READ year WRITE setYear NOTIFY yearChanged FINAL)
    Q_PROPERTY(int month READ month WRITE setMonth NOTIFY monthChanged FINAL)
    Q_PROPERTY(int day READ day WRITE setDay NOTIFY dayChanged FINAL)
    Q_PROPERTY(int hour READ hour WRITE setHour NOTIFY hourChanged FINAL)
    Q_PROPERTY(int minute READ minute WRITE setMinute NOTIFY minuteChanged FINAL)
    Q_PROPERTY(int second READ second WRITE setSecond NOTIFY secondChanged FINAL)
    Q_PROPERTY(int millisecond READ millisecond WRITE setMillisecond NOTIFY millisecondChanged FINAL)
    /*! The keys of the stream: its channel's address and the number that the video item publishes. */
    Q_PROPERTY(int serverGroupId READ serverGroupId WRITE setServerGroupId NOTIFY serverGroupIdChanged FINAL)
    Q_PROPERTY(int serverId READ serverId WRITE setServerId NOTIFY serverIdChanged FINAL)
    Q_PROPERTY(int channelId READ channelId WRITE setChannelId NOTIFY channelIdChanged FINAL)
    Q_PROPERTY(orrin::RequestId streamId READ streamId WRITE setStreamId NOTIFY streamIdChanged FINAL)

public:
    enum State { Rewind = 0, Pause = 1, Play = 2, Forward = 3 };
    Q_ENUM(State)

    /*! \a provider is borrowed for the life of the object. */
    QmlPlaybackControllerInterface(QmlAbstractStreamProvider *provider, QObject *parent);
    ~QmlPlaybackControllerInterface() override;

    bool playbackPermitted() const;
    /*! By the amount of the speed alone: a stream that rewinds reads Forward, and Rewind is never reported. */
    State state() const;
    double speed() const;
    void setSpeed(double speed);

    int year() const;
    void setYear(int year);
    int month() const;
    void setMonth(int month);
    int day() const;
    void setDay(int day);
    int hour() const;
    void setHour(int hour);
    int minute() const;
    void setMinute(int minute);
    int second() const;
    void setSecond(int second);
    int millisecond() const;
    void setMillisecond(int millisecond);

    int serverGroupId() const;
    void setServerGroupId(int id);
    int serverId() const;
    void setServerId(int id);
    int channelId() const;
    void setChannelId(int id);
    RequestId streamId() const;
    void setStreamId(RequestId id);

    /*! Twice real time backward. */
    Q_INVOKABLE void rewind();
    /*! Backward from 2, doubling to 1024 with each call; changes the direction first. */
    Q_INVOKABLE void fastRewind();
    /*! To the live edge at normal speed. Needs no right. */
    Q_INVOKABLE void live();
    Q_INVOKABLE void pause();
    Q_INVOKABLE void play();
    /*! Holds at the start of the recording. */
    Q_INVOKABLE void stop();
    /*! Normal play at 0.1 to 2.0; does nothing for another \a speed. */
    Q_INVOKABLE void playWithSpeed(double speed);
    /*! Twice real time forward. */
    Q_INVOKABLE void forward();
    /*! Forward from 2, doubling to 1024 with each call; changes the direction first. */
    Q_INVOKABLE void fastForward();
    /*! Seek to a moment, given as such or by a date and time of day in a zone. A `time_zone` holds a QTimeZone or converts to one. */
    Q_INVOKABLE void jumpToDateTime(const QDateTime &datetime);
    Q_INVOKABLE void jump(QDate date, int hour, int minute, int second, const QVariant &time_zone);
    /*! Seeks while dragging; \a epoch_time is in milliseconds. */
    Q_INVOKABLE void scrubJump(qlonglong epoch_time, const QVariant &time_zone);
    /*! One frame, then hold. The speed becomes 0 without a signal, as with the two jumps below. */
    Q_INVOKABLE void frameStepBack();
    Q_INVOKABLE void frameStepForward();
    /*! Set the speed, positive in the direction named. */
    Q_INVOKABLE void rewindSpeed(int speed);
    Q_INVOKABLE void fastForwardSpeed(int speed);
    Q_INVOKABLE void jumpToStart();
    Q_INVOKABLE void jumpToEnd();
    Q_INVOKABLE void setTrackId(uint track_id);
    /*! "Rewind", "Pause", "Play" or "Forward"; for programs, not translated. */
    Q_INVOKABLE QString stateString() const;

    void enableSPModule(SPModuleType module);
    void disableSPModule(SPModuleType module);

Q_SIGNALS:
    void stateChanged();
    void speedChanged();
    void yearChanged();
    void monthChanged();
    void dayChanged();
    void hourChanged();
    void minuteChanged();
    void secondChanged();
    void millisecondChanged();
    void serverGroupIdChanged();
    void serverIdChanged();
    void channelIdChanged();
    void streamIdChanged();

protected:
    using PrivatePointer = std::unique_ptr<QmlPlaybackControllerInterfacePrivate,
                                           std::function<void(QmlPlaybackControllerInterfacePrivate *)>>;

    explicit QmlPlaybackControllerInterface(PrivatePointer d, QObject *parent = nullptr);

    PrivatePointer d_ptr;

private:
    Q_DISABLE_COPY_MOVE(QmlPlaybackControllerInterface)

    QmlPlaybackControllerInterfacePrivate *d_func() const { return d_ptr.get(); }
    void jumpToUTCTime(const QDateTime &dateTime, bool scrub);
};

} // namespace orrin
