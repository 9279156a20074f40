// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/processor/outputgate.h"

#include <QCoreApplication>
#include <QMetaObject>

#include <utility>

namespace orrin {

OutputGate::OutputGate(QList<QSharedPointer<SPAbstractOutput>> outputs) : m_outputs(std::move(outputs)) {}
OutputGate::~OutputGate() = default;

template <typename Function>
void OutputGate::call(Function function)
{
    {
        const std::lock_guard lock(m_mutex);
        if (m_closed)
            return;
        ++m_calls;
    }
    for (const auto &output : std::as_const(m_outputs))
        function(*output);

    QList<QSharedPointer<SPAbstractOutput>> leftover;
    {
        const std::lock_guard lock(m_mutex);
        if (--m_calls > 0 || !m_closed)
            return;
        leftover.swap(m_outputs);
    }
    // Outputs hold displays and renderers, which end where they were made.
    if (QCoreApplication *application = QCoreApplication::instance())
        QMetaObject::invokeMethod(application, [outputs = std::move(leftover)] {}, Qt::QueuedConnection);
}

void OutputGate::setVideoFrame(const VideoFrame &frame)
{
    call([&frame](SPAbstractOutput &output) { output.setVideoFrame(frame); });
}

void OutputGate::setDelay(long long delayMs)
{
    call([delayMs](SPAbstractOutput &output) { output.setDelay(delayMs); });
}

void OutputGate::setError(const PlaybackError &error, int mark)
{
    call([&error, mark](SPAbstractOutput &output) { output.setError(error, mark); });
}

void OutputGate::setBusy(bool busy)
{
    call([busy](SPAbstractOutput &output) { output.setBusy(busy); });
}

QList<QSharedPointer<SPAbstractOutput>> OutputGate::outputs() const
{
    const std::lock_guard lock(m_mutex);
    return m_outputs;
}

void OutputGate::close()
{
    QList<QSharedPointer<SPAbstractOutput>> outputs;
    {
        const std::lock_guard lock(m_mutex);
        m_closed = true;
        outputs = m_outputs;
        if (m_calls == 0)
            m_outputs.clear();
    }
    for (const auto &output : std::as_const(outputs))
        output->close();
}

} // namespace orrin
