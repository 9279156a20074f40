// SPDX-License-Identifier: GPL-3.0-or-later
#include "util/log/filelogdevice.h"

#include <QDir>

namespace orrin::olog {

FileLogDevice::FileLogDevice(const QString &path, const QString &fileName, long long maximumBytes)
    : m_filePath(QDir(path).filePath(fileName)), m_maximumBytes(maximumBytes)
{
    m_open = QDir().mkpath(path) && openFile();
    if (m_open)
        m_thread = std::thread([this] { run(); });
    else
        m_stopped = true;
}

FileLogDevice::~FileLogDevice()
{
    stop();
}

void FileLogDevice::setMaximumSize(long long bytes)
{
    m_maximumBytes = bytes;
}

void FileLogDevice::write(const LogItem &item)
{
    QByteArray line = item.toLine() + '\n';
    std::unique_lock lock(m_mutex);
    if (!m_open)
        return;
    // After stop() the thread still writes the rest of the queue, which comes first.
    m_written.wait(
        lock, [this] { return m_stopped ? !m_writing && m_queue.isEmpty() : m_queue.size() < QueueLimit; });
    if (m_stopped) {
        writeLines({line});
        return;
    }
    m_queue.append(std::move(line));
    lock.unlock();
    m_filled.notify_one();
}

void FileLogDevice::flush()
{
    std::unique_lock lock(m_mutex);
    m_written.wait(lock, [this] { return m_queue.isEmpty() && !m_writing; });
}

void FileLogDevice::stop()
{
    {
        const std::lock_guard lock(m_mutex);
        if (m_stopped && !m_thread.joinable())
            return;
        m_stopped = true;
    }
    m_filled.notify_one();
    m_written.notify_all();
    if (m_thread.joinable())
        m_thread.join();
}

void FileLogDevice::run()
{
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_filled.wait(lock, [this] { return m_stopped || !m_queue.isEmpty(); });
        if (m_stopped)
            break;
        QList<QByteArray> lines;
        lines.swap(m_queue);
        m_writing = true;
        lock.unlock();
        writeLines(lines);
        lock.lock();
        m_writing = false;
        m_written.notify_all();
    }
    // Under the lock, so that a line written after stop() stands behind the queue's rest.
    writeLines(m_queue);
    m_queue.clear();
    m_written.notify_all();
}

void FileLogDevice::writeLines(const QList<QByteArray> &lines)
{
    for (const QByteArray &line : lines) {
        const long long maximum = m_maximumBytes;
        if (maximum > 0 && m_size > 0 && m_size + line.size() > maximum)
            rotate();
        const qint64 written = m_file.write(line);
        m_size += qMax<qint64>(written, 0);
    }
    m_file.flush();
}

void FileLogDevice::rotate()
{
    m_file.close();
    const QString predecessor = m_filePath + QLatin1StringView(".1");
    QFile::remove(predecessor);
    QFile::rename(m_filePath, predecessor);
    openFile();
}

bool FileLogDevice::openFile()
{
    m_file.setFileName(m_filePath);
    const bool opened = m_file.open(QIODevice::WriteOnly | QIODevice::Append);
    m_size = opened ? m_file.size() : 0;
    return opened;
}

} // namespace orrin::olog
