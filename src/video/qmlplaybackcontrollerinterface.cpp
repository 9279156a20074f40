// SPDX-License-Identifier: GPL-3.0-or-later
#include "video/qmlplaybackcontrollerinterface.h"

#include "resources/resourcelookup_p.h"
#include "video/qmlabstractstreamprovider.h"
#include "video/qmlplaybackcontrollerinterface_p.h"

#include <contract/core/connectionmanager.h>
#include <contract/core/currentuser.h>
#include <contract/core/server.h>
#include <contract/core/sspermission.h>
#include <contract/util/time300.h>

#include <QTimeZone>

#include <cmath>
#include <limits>
#include <utility>

namespace orrin {

namespace {

constexpr double PlaySpeed = 1.0;
constexpr double MinimumPlaySpeed = 0.1;
constexpr double MaximumPlaySpeed = 2.0; // up to here the stream plays all frames, above it winds
constexpr double MaximumWindSpeed = 1024.0;

/*! \a speed, which is not negative, cut to a whole number. */
int wholeSpeed(double speed)
{
    constexpr int Maximum = std::numeric_limits<int>::max();
    return speed < double(Maximum) ? int(speed) : Maximum;
}

} // namespace

AbstractStreamProcessor *QmlPlaybackControllerInterfacePrivate::findStreamProcessor()
{
    if (!streamProcessor && provider && serverGroupId >= 0 && serverId >= 0 && channelId >= 0) {
        streamProcessor = provider->getStreamProcessor(unsigned(serverGroupId), unsigned(serverId), unsigned(channelId),
                                                       streamId);
    }
    return streamProcessor;
}

QPointer<SPAbstractInputControl> QmlPlaybackControllerInterfacePrivate::inputControl()
{
    const AbstractStreamProcessor *processor = findStreamProcessor();
    return processor ? processor->inputControl() : nullptr;
}

void QmlPlaybackControllerInterfacePrivate::applySpeed()
{
    const QPointer<SPAbstractInputControl> control = inputControl();
    if (!control)
        return;
    if (speed == 0.0) {
        control->pause(0);
    } else if (speed < 0.0) {
        control->rewind(wholeSpeed(-speed));
    } else if (speed > MaximumPlaySpeed) {
        control->fastForward(wholeSpeed(speed));
    } else {
        control->setSpeed(speed);
        control->play(SPInputControlInterface::FromHere, SPInputControlInterface::NoMark);
    }
}

QmlPlaybackControllerInterface::QmlPlaybackControllerInterface(QmlAbstractStreamProvider *provider, QObject *parent)
    : QmlPlaybackControllerInterface(PrivatePointer(new QmlPlaybackControllerInterfacePrivate(provider),
                                                    [](QmlPlaybackControllerInterfacePrivate *d) { delete d; }),
                                     parent)
{
}

QmlPlaybackControllerInterface::QmlPlaybackControllerInterface(PrivatePointer d, QObject *parent)
    : QObject(parent)
    , d_ptr(std::move(d))
{
}

QmlPlaybackControllerInterface::~QmlPlaybackControllerInterface() = default;

bool QmlPlaybackControllerInterface::playbackPermitted() const
{
    const ConnectionManager *manager = findConnectionManager();
    const Server *server = manager ? manager->server(d_func()->serverGroupId, d_func()->serverId) : nullptr;
    const QSharedPointer<CurrentUser> user = server ? server->currentUser() : nullptr;
    return user && user->isPermitted(SSPermission(SSPermission::PlayBack));
}

QmlPlaybackControllerInterface::State QmlPlaybackControllerInterface::state() const
{
    // The amount comes first, so that rewinding reads Forward; the components count on it.
    const double amount = std::abs(d_func()->speed);
    if (amount == 0.0)
        return Pause;
    return amount <= PlaySpeed ? Play : Forward;
}

QString QmlPlaybackControllerInterface::stateString() const
{
    switch (state()) {
    case Rewind:
        return QStringLiteral("Rewind");
    case Pause:
        return QStringLiteral("Pause");
    case Play:
        return QStringLiteral("Play");
    case Forward:
        break;
    }
    return QStringLiteral("Forward");
}

double QmlPlaybackControllerInterface::speed() const
{
    return d_func()->speed;
}

void QmlPlaybackControllerInterface::setSpeed(double speed)
{
    if (std::isnan(speed))
        return;
    if (speed != 0.0 && !playbackPermitted())
        return;
    if (speed == d_func()->speed)
        return;
    d_func()->speed = speed;
    d_func()->applySpeed();
    Q_EMIT speedChanged();
    Q_EMIT stateChanged();
}

void QmlPlaybackControllerInterface::rewind()
{
    setSpeed(-MaximumPlaySpeed);
}

void QmlPlaybackControllerInterface::fastRewind()
{
    const double amount = std::abs(d_func()->speed);
    if (amount >= MaximumWindSpeed)
        setSpeed(-MaximumWindSpeed);
    else if (d_func()->speed >= 0.0)
        rewind();
    else
        setSpeed(-2.0 * amount);
}

void QmlPlaybackControllerInterface::live()
{
    const QPointer<SPAbstractInputControl> control = d_func()->inputControl();
    if (!control)
        return;
    d_func()->speed = PlaySpeed;
    control->live(0);
    Q_EMIT stateChanged();
}

void QmlPlaybackControllerInterface::pause()
{
    setSpeed(0.0);
    Q_EMIT stateChanged();
}

void QmlPlaybackControllerInterface::play()
{
    setSpeed(PlaySpeed);
    Q_EMIT stateChanged();
}

void QmlPlaybackControllerInterface::stop()
{
    pause();
    jumpToStart();
    Q_EMIT stateChanged();
}

void QmlPlaybackControllerInterface::playWithSpeed(double speed)
{
    if (!(speed >= MinimumPlaySpeed && speed <= MaximumPlaySpeed))
        return;
    setSpeed(speed);
    Q_EMIT stateChanged();
}

void QmlPlaybackControllerInterface::forward()
{
    setSpeed(MaximumPlaySpeed);
    Q_EMIT stateChanged();
}

void QmlPlaybackControllerInterface::fastForward()
{
    const double amount = std::abs(d_func()->speed);
    if (amount >= MaximumWindSpeed)
        setSpeed(MaximumWindSpeed);
    else if (d_func()->speed <= 0.0)
        forward();
    else
        setSpeed(2.0 * amount);
    Q_EMIT stateChanged();
}

void QmlPlaybackControllerInterface::rewindSpeed(int speed)
{
    setSpeed(-double(speed));
}

void QmlPlaybackControllerInterface::fastForwardSpeed(int speed)
{
    setSpeed(speed);
}

void QmlPlaybackControllerInterface::jumpToDateTime(const QDateTime &datetime)
{
    jumpToUTCTime(datetime, false);
}

void QmlPlaybackControllerInterface::jump(QDate date, int hour, int minute, int second, const QVariant &time_zone)
{
    jumpToUTCTime(QDateTime(date, QTime(hour, minute, second, 0), time_zone.value<QTimeZone>()), false);
}

void QmlPlaybackControllerInterface::scrubJump(qlonglong epoch_time, const QVariant &time_zone)
{
    jumpToUTCTime(QDateTime::fromMSecsSinceEpoch(epoch_time, time_zone.value<QTimeZone>()), true);
}

void QmlPlaybackControllerInterface::jumpToUTCTime(const QDateTime &dateTime, bool scrub)
{
    if (!playbackPermitted())
        return;
    const QPointer<SPAbstractInputControl> control = d_func()->inputControl();
    if (!control)
        return;
    const Time300 time = dateTimeToTime300(dateTime);
    if (scrub)
        control->scrub(time, SPInputControlInterface::NoMark);
    else
        control->jump(time, 1);
}

void QmlPlaybackControllerInterface::frameStepBack()
{
    if (const auto control = d_func()->inputControl(); control && playbackPermitted()) {
        control->stepBack();
        d_func()->speed = 0.0;
    }
}

void QmlPlaybackControllerInterface::frameStepForward()
{
    if (const auto control = d_func()->inputControl(); control && playbackPermitted()) {
        control->stepForward();
        d_func()->speed = 0.0;
    }
}

void QmlPlaybackControllerInterface::jumpToStart()
{
    if (const auto control = d_func()->inputControl(); control && playbackPermitted()) {
        control->jumpToStart();
        d_func()->speed = 0.0;
    }
}

void QmlPlaybackControllerInterface::jumpToEnd()
{
    if (const auto control = d_func()->inputControl(); control && playbackPermitted()) {
        control->jumpToEnd();
        d_func()->speed = 0.0;
    }
}

void QmlPlaybackControllerInterface::setTrackId(uint track_id)
{
    if (const auto control = d_func()->inputControl(); control && playbackPermitted())
        control->setTrackId(track_id);
}

void QmlPlaybackControllerInterface::enableSPModule(SPModuleType module)
{
    if (const auto control = d_func()->inputControl())
        control->enableModule(module);
}

void QmlPlaybackControllerInterface::disableSPModule(SPModuleType module)
{
    if (const auto control = d_func()->inputControl())
        control->disableModule(module);
}

int QmlPlaybackControllerInterface::year() const
{
    return d_func()->year;
}

void QmlPlaybackControllerInterface::setYear(int year)
{
    if (d_func()->year == year)
        return;
    d_func()->year = year;
    Q_EMIT yearChanged();
}

int QmlPlaybackControllerInterface::month() const
{
    return d_func()->month;
}

void QmlPlaybackControllerInterface::setMonth(int month)
{
    if (d_func()->month == month)
        return;
    d_func()->month = month;
    Q_EMIT monthChanged();
}

int QmlPlaybackControllerInterface::day() const
{
    return d_func()->day;
}

void QmlPlaybackControllerInterface::setDay(int day)
{
    if (d_func()->day == day)
        return;
    d_func()->day = day;
    Q_EMIT dayChanged();
}

int QmlPlaybackControllerInterface::hour() const
{
    return d_func()->hour;
}

void QmlPlaybackControllerInterface::setHour(int hour)
{
    if (d_func()->hour == hour)
        return;
    d_func()->hour = hour;
    Q_EMIT hourChanged();
}

int QmlPlaybackControllerInterface::minute() const
{
    return d_func()->minute;
}

void QmlPlaybackControllerInterface::setMinute(int minute)
{
    if (d_func()->minute == minute)
        return;
    d_func()->minute = minute;
    Q_EMIT minuteChanged();
}

int QmlPlaybackControllerInterface::second() const
{
    return d_func()->second;
}

void QmlPlaybackControllerInterface::setSecond(int second)
{
    if (d_func()->second == second)
        return;
    d_func()->second = second;
    Q_EMIT secondChanged();
}

int QmlPlaybackControllerInterface::millisecond() const
{
    return d_func()->millisecond;
}

void QmlPlaybackControllerInterface::setMillisecond(int millisecond)
{
    if (d_func()->millisecond == millisecond)
        return;
    d_func()->millisecond = millisecond;
    Q_EMIT millisecondChanged();
}

int QmlPlaybackControllerInterface::serverGroupId() const
{
    return d_func()->serverGroupId;
}

void QmlPlaybackControllerInterface::setServerGroupId(int id)
{
    if (d_func()->serverGroupId == id)
        return;
    d_func()->serverGroupId = id;
    d_func()->streamProcessor.clear();
    Q_EMIT serverGroupIdChanged();
}

int QmlPlaybackControllerInterface::serverId() const
{
    return d_func()->serverId;
}

void QmlPlaybackControllerInterface::setServerId(int id)
{
    if (d_func()->serverId == id)
        return;
    d_func()->serverId = id;
    d_func()->streamProcessor.clear();
    Q_EMIT serverIdChanged();
}

int QmlPlaybackControllerInterface::channelId() const
{
    return d_func()->channelId;
}

void QmlPlaybackControllerInterface::setChannelId(int id)
{
    if (d_func()->channelId == id)
        return;
    d_func()->channelId = id;
    d_func()->streamProcessor.clear();
    Q_EMIT channelIdChanged();
}

RequestId QmlPlaybackControllerInterface::streamId() const
{
    return d_func()->streamId;
}

void QmlPlaybackControllerInterface::setStreamId(RequestId id)
{
    if (d_func()->streamId == id)
        return;
    d_func()->streamId = id;
    d_func()->streamProcessor.clear();
    Q_EMIT streamIdChanged();
}

} // namespace orrin
