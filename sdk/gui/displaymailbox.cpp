// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/displaymailbox.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>
#include <QThread>

#include <algorithm>
#include <utility>

namespace orrin {

namespace {

QEvent::Type deliveryEvent()
{
    static const int type = QEvent::registerEventType();
    return QEvent::Type(type);
}

} // namespace

DisplayMailbox::DisplayMailbox(QObject *parent) : QObject(parent) {}
DisplayMailbox::~DisplayMailbox() = default;

void DisplayMailbox::setRenderer(const QSharedPointer<ImageRenderingInterface> &renderer)
{
    Q_ASSERT(QThread::currentThread() == thread());
    // The old renderer may end with this assignment and look at this object while it does.
    const QSharedPointer<ImageRenderingInterface> old = std::exchange(m_renderer, renderer);
}

void DisplayMailbox::putFrame(const VideoFrame &frame)
{
    VideoFrame old; // released outside the lock
    const std::lock_guard lock(m_mutex);
    const auto place = std::find_if(m_items.begin(), m_items.end(),
                                    [](const Item &item) { return std::holds_alternative<FramePlace>(item); });
    if (place != m_items.end()) {
        m_items.erase(place);
        m_replaced.fetch_add(1, std::memory_order_relaxed);
    }
    old = std::exchange(m_frame, frame);
    m_items.emplace_back(FramePlace{});
    postDelivery();
}

void DisplayMailbox::putError(const PlaybackError &error, int mark)
{
    put(Failure{error, mark});
}

void DisplayMailbox::putBusy(bool busy)
{
    put(Busy{busy});
}

void DisplayMailbox::put(Item item)
{
    const std::lock_guard lock(m_mutex);
    const auto waits = [](const Item &waiting) { return !std::holds_alternative<FramePlace>(waiting); };
    if (std::count_if(m_items.begin(), m_items.end(), waits) >= MaxWaiting)
        m_items.erase(std::find_if(m_items.begin(), m_items.end(), waits));
    m_items.push_back(std::move(item));
    postDelivery();
}

void DisplayMailbox::postDelivery()
{
    if (std::exchange(m_posted, true))
        return;
    QCoreApplication::postEvent(this, new QEvent(deliveryEvent()));
}

bool DisplayMailbox::event(QEvent *event)
{
    if (event->type() != deliveryEvent())
        return QObject::event(event);
    deliver();
    return true;
}

void DisplayMailbox::deliver()
{
    std::deque<Item> items;
    VideoFrame frame;
    {
        const std::lock_guard lock(m_mutex);
        items.swap(m_items);
        frame = std::exchange(m_frame, VideoFrame());
        m_posted = false;
    }
    // A call may change the renderer or end this object.
    const QPointer<DisplayMailbox> self(this);
    for (const Item &item : items) {
        const QSharedPointer<ImageRenderingInterface> renderer = m_renderer;
        if (!renderer)
            return;
        if (std::holds_alternative<FramePlace>(item)) {
            m_delivered.fetch_add(1, std::memory_order_relaxed);
            renderer->setVideoFrame(frame);
        } else if (const auto *failure = std::get_if<Failure>(&item)) {
            renderer->setError(failure->error, failure->mark);
        } else if (std::get<Busy>(item).busy) {
            renderer->showBusySpinnerWheel();
        } else {
            renderer->clearBusySpinnerWheel();
        }
        if (!self)
            return;
    }
}

} // namespace orrin
