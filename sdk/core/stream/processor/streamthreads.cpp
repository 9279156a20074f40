// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/processor/streamthreads.h"

#include <QCoreApplication>

#include <algorithm>

namespace orrin {

namespace {

constexpr int ThreadLimit = 4;

} // namespace

StreamThreads::StreamThreads() = default;

StreamThreads::~StreamThreads()
{
    shutDown();
}

StreamThreads &StreamThreads::instance()
{
    static StreamThreads threads;
    return threads;
}

int StreamThreads::maxThreads()
{
    return std::clamp(QThread::idealThreadCount(), 1, ThreadLimit);
}

QThread *StreamThreads::acquire()
{
    const auto fewer = [](const Slot &a, const Slot &b) { return a.streams < b.streams; };
    auto slot = std::min_element(m_slots.begin(), m_slots.end(), fewer);
    const bool allBusy = slot == m_slots.end() || slot->streams > 0;
    if (allBusy && int(m_slots.size()) < maxThreads()) {
        if (m_slots.empty())
            qAddPostRoutine([] { StreamThreads::instance().shutDown(); });
        Slot fresh{std::make_unique<QThread>()};
        fresh.thread->setObjectName(QStringLiteral("orrin-stream-%1").arg(m_slots.size() + 1));
        fresh.thread->start();
        m_slots.push_back(std::move(fresh));
        slot = m_slots.end() - 1;
    }
    ++slot->streams;
    return slot->thread.get();
}

void StreamThreads::release(QThread *thread)
{
    for (Slot &slot : m_slots) {
        if (slot.thread.get() == thread)
            --slot.streams;
    }
}

void StreamThreads::shutDown()
{
    Q_EMIT aboutToShutDown();
    for (const Slot &slot : m_slots)
        slot.thread->quit();
    for (const Slot &slot : m_slots)
        slot.thread->wait();
    m_slots.clear();
}

} // namespace orrin
