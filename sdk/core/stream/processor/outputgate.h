// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>
#include <contract/core/spabstractoutput.h>

#include <QList>
#include <QSharedPointer>

#include <mutex>

namespace orrin {

/*! Stands between a stream's thread and the outputs, which belong to the main thread.

    setVideoFrame() and its like: the stream's thread. outputs() and close(): the main thread. After close() no output is called any more; one
    that is being called at that moment is released afterwards, still on the main thread. No lock is held during a call. */
class ORRINSDK_CORE_EXPORT OutputGate
{
public:
    explicit OutputGate(QList<QSharedPointer<SPAbstractOutput>> outputs);
    ~OutputGate();
    OutputGate(const OutputGate &) = delete;
    OutputGate &operator=(const OutputGate &) = delete;

    void setVideoFrame(const VideoFrame &frame);
    void setDelay(long long delayMs);
    void setError(const PlaybackError &error, int mark);
    void setBusy(bool busy);

    QList<QSharedPointer<SPAbstractOutput>> outputs() const;
    void close();

private:
    template <typename Function>
    void call(Function function);

    mutable std::mutex m_mutex;
    QList<QSharedPointer<SPAbstractOutput>> m_outputs; // changes only while m_calls is 0
    int m_calls = 0;
    bool m_closed = false;
};

} // namespace orrin
