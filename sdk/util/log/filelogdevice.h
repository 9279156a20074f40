// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/util/export.h>
#include <contract/util/logdevice.h>

#include <QByteArray>
#include <QFile>
#include <QList>
#include <QString>

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace orrin::olog {

/*! Writes log lines into a file, which is closed at a size limit and kept as one predecessor with ".1" behind
    its name.

    Threads: write() may be called from any thread and only appends to a queue; one thread of the device's own
    writes the queue out. The queue is bounded: with the disk too slow for it, write() waits, so that no line
    is lost. stop() and the destructor return when everything is written. Owned by the LogManager's list of
    devices. */
class ORRINSDK_UTIL_EXPORT FileLogDevice : public LogDevice
{
public:
    /*! Lines that may wait for the disk. */
    static constexpr qsizetype QueueLimit = 8192;

    /*! Begins \a path / \a fileName, behind what is there already. \a maximumBytes of 0 means no limit. */
    FileLogDevice(const QString &path, const QString &fileName, long long maximumBytes);
    ~FileLogDevice() override;

    /*! False when the file could not be opened; lines are then dropped. */
    bool isOpen() const { return m_open; }

    void setMaximumSize(long long bytes);
    void write(const LogItem &item) override;
    Type type() const override { return Type::File; }

    /*! Returns when all lines written before are in the file. */
    void flush();
    /*! Writes out the queue and ends the thread; later lines are written on the caller's thread. */
    void stop();

private:
    void run();
    void writeLines(const QList<QByteArray> &lines);
    void rotate();
    bool openFile();

    const QString m_filePath;
    QFile m_file; // the writing thread's, after stop() whoever holds m_mutex
    qint64 m_size = 0;
    bool m_open = false;
    std::atomic<long long> m_maximumBytes;

    std::mutex m_mutex;
    std::condition_variable m_filled;
    std::condition_variable m_written;
    QList<QByteArray> m_queue;
    bool m_writing = false;
    bool m_stopped = false;
    std::thread m_thread;
};

} // namespace orrin::olog
