// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/ptz/ptzdevice.h"
#include "core/session/session.h"

#include <QPointer>
#include <QTimer>

#include <deque>
#include <optional>

namespace orrin {

/*! The queue in front of one camera. Main thread.

    One request is out at a time. Commands go before questions. A speed that waits is replaced by the next one, so that a drag never
    queues, whatever its pace; a stop is never lost and never refused.

    A camera that moves is told its speed again before its time-out ends the motion, as long as the speed is wanted: a connection that
    breaks and a process that ends therefore stop it. A stop that got no answer is repeated. */
class CameraPtz : public QObject
{
    Q_OBJECT
public:
    /*! Requests that wait, beyond which a request is answered as busy. */
    static constexpr std::size_t QueueLimit = 32;

    CameraPtz(DeviceLink *link, const PtzTarget &target, const OnvifTimings &timings, QObject *parent = nullptr);

    void request(const PtzRequest &request, QObject *context, Session::PtzCallback callback);

    /*! There is no connection any more: nothing is sent after this. With \a tell, what waits is answered so. */
    void end(bool tell);

    const PtzTarget &target() const { return m_target; }

private:
    struct Job
    {
        PtzRequest request;
        QPointer<QObject> context;
        bool hasContext = false;
        Session::PtzCallback callback;
    };

    bool replaceWaiting(Job &job);
    void enqueue(Job job);
    void next();
    void onDone(const PtzAnswer &answer);
    void afterMove(const PtzRequest &request, const PtzAnswer &answer);
    void renew();
    void repeatStop();
    static void answer(const Job &job, const PtzAnswer &answer);
    static void answerLater(const Job &job, const PtzAnswer &answer);

    const PtzTarget m_target;
    const OnvifTimings m_timings;
    PtzDevice m_device;
    std::deque<Job> m_commands;
    std::deque<Job> m_questions;
    std::optional<Job> m_running;
    PtzRequest m_wanted; // the newest speeds
    bool m_mayMove = false;
    int m_stopTries = 0;
    QTimer m_renewal;
    QTimer m_stopAgain;
    bool m_ended = false;
};

} // namespace orrin
