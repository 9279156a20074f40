// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/util/messagelog.h>

#include <QMutex>

#include <deque>

namespace orrin::olog {

class MessageLogPrivate
{
public:
    void trim()
    {
        while (lines.size() > size)
            lines.pop_front();
    }

    mutable QMutex mutex;
    std::deque<QByteArray> lines;
    std::size_t size = 100;
};

MessageLog::MessageLog() : d(std::make_unique<MessageLogPrivate>()) {}

MessageLog::~MessageLog() = default;

void MessageLog::setSize(unsigned lines)
{
    const QMutexLocker locker(&d->mutex);
    d->size = lines;
    d->trim();
}

void MessageLog::write(const LogItem &item)
{
    QByteArray line = item.toLine();
    const QMutexLocker locker(&d->mutex);
    d->lines.push_back(std::move(line));
    d->trim();
}

QList<QByteArray> MessageLog::lines() const
{
    const QMutexLocker locker(&d->mutex);
    return QList<QByteArray>(d->lines.begin(), d->lines.end());
}

} // namespace orrin::olog
