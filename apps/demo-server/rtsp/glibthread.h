// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <thread>

typedef struct _GMainContext GMainContext;
typedef struct _GMainLoop GMainLoop;

namespace orrin::demo {

/*! A thread with a GLib main loop, where the RTSP servers live. The loop runs from construction to
 * destruction. */
class GlibThread
{
public:
    GlibThread();
    ~GlibThread();
    GlibThread(const GlibThread &) = delete;
    GlibThread &operator=(const GlibThread &) = delete;

    /*! Runs \a function in the loop and waits for its end. Not to be called from the loop itself. */
    void run(const std::function<void()> &function);

    GMainContext *context() const { return m_context; }

private:
    GMainContext *m_context;
    GMainLoop *m_loop;
    std::thread m_thread;
};

} // namespace orrin::demo
