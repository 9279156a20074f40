// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>

#include <QObject>
#include <QTimer>

#include <chrono>

namespace orrin {

/*! Says when a lost session is to be tried again: each wait is twice the one before, up to a limit, and
    varied by a fifth either way, so that many clients of one server do not come back at once. Main thread. */
class ORRINSDK_CORE_EXPORT ReconnectTimer : public QObject
{
    Q_OBJECT
public:
    ReconnectTimer(std::chrono::milliseconds first, std::chrono::milliseconds longest,
                   QObject *parent = nullptr);

    /*! Starts the next wait, which ends in due(). */
    void scheduleNext();
    /*! Starts a wait of the longest kind: for failures that only a person can mend. */
    void scheduleLongest();
    /*! Ends the wait; the next one is the first again. */
    void reset();

    bool isWaiting() const { return m_timer.isActive(); }
    /*! The wait now running, with its variation. */
    std::chrono::milliseconds wait() const { return m_timer.intervalAsDuration(); }

Q_SIGNALS:
    void due();

private:
    void start(std::chrono::milliseconds wait);

    const std::chrono::milliseconds m_first;
    const std::chrono::milliseconds m_longest;
    std::chrono::milliseconds m_next;
    QTimer m_timer;
};

} // namespace orrin
