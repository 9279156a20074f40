// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>

#include <QObject>
#include <QThread>

#include <memory>
#include <vector>

namespace orrin {

/*! The few threads that all streams share: one a core, at most four, each with an event loop. Used on the main thread.

    Threads start when first needed. They end with shutDown(), which OrrinSDK::shutdown() calls, or with the application; a
    stream that is started afterwards starts them again. */
class ORRINSDK_CORE_EXPORT StreamThreads : public QObject
{
    Q_OBJECT
public:
    static StreamThreads &instance();

    /*! The thread with the fewest streams. To be given back by release(). */
    QThread *acquire();
    void release(QThread *thread);

    /*! Tells the streams, then ends the threads and waits for them. */
    void shutDown();

    static int maxThreads();

Q_SIGNALS:
    /*! Streams let go of whatever lives on the threads, at once. */
    void aboutToShutDown();

private:
    StreamThreads();
    ~StreamThreads() override;

    struct Slot
    {
        std::unique_ptr<QThread> thread;
        int streams = 0;
    };
    std::vector<Slot> m_slots;
};

} // namespace orrin
