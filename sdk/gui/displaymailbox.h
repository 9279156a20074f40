// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/gui/imagerenderinginterface.h>

#include <QObject>
#include <QSharedPointer>

#include <atomic>
#include <deque>
#include <mutex>
#include <variant>

namespace orrin {

/*! What waits between the stream's thread and a renderer.

    put...(): any thread; they store, and post one event if none is on its way. Delivery, setRenderer() and renderer(): the thread
    that the object lives on. Frames: one place; a new frame takes it and goes to the end of the line. Errors and busy states
    keep their order; above MaxWaiting of them the oldest go. The lock is held for the hand-over only, never while the renderer
    is called. */
class DisplayMailbox : public QObject
{
    Q_OBJECT
public:
    static constexpr int MaxWaiting = 64;

    explicit DisplayMailbox(QObject *parent = nullptr);
    ~DisplayMailbox() override;

    void setRenderer(const QSharedPointer<ImageRenderingInterface> &renderer);
    QSharedPointer<ImageRenderingInterface> renderer() const { return m_renderer; }

    void putFrame(const VideoFrame &frame);
    void putError(const PlaybackError &error, int mark);
    void putBusy(bool busy);

    void setDelay(long long delayMs) { m_delay.store(delayMs, std::memory_order_relaxed); }
    long long delay() const { return m_delay.load(std::memory_order_relaxed); }
    quint64 deliveredFrames() const { return m_delivered.load(std::memory_order_relaxed); }
    quint64 replacedFrames() const { return m_replaced.load(std::memory_order_relaxed); }

    bool event(QEvent *event) override;

private:
    struct Failure
    {
        PlaybackError error;
        int mark;
    };
    struct Busy
    {
        bool busy;
    };
    struct FramePlace
    {
    };
    using Item = std::variant<FramePlace, Failure, Busy>;

    void postDelivery();
    void put(Item item);
    void deliver();

    QSharedPointer<ImageRenderingInterface> m_renderer;

    std::mutex m_mutex;
    std::deque<Item> m_items; // guarded by m_mutex, as are the two below
    VideoFrame m_frame;
    bool m_posted = false;

    std::atomic<quint64> m_delivered = 0;
    std::atomic<quint64> m_replaced = 0;
    std::atomic<long long> m_delay = 0;
};

} // namespace orrin
