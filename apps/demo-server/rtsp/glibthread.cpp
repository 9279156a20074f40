// SPDX-License-Identifier: GPL-3.0-or-later
#include "rtsp/glibthread.h"

#include <glib.h>

#include <future>

namespace orrin::demo {

namespace {
struct Task
{
    const std::function<void()> *function;
    std::promise<void> done;
};
} // namespace

GlibThread::GlibThread()
    : m_context(g_main_context_new()), m_loop(g_main_loop_new(m_context, FALSE)), m_thread([this] {
        g_main_context_push_thread_default(m_context);
        g_main_loop_run(m_loop);
        g_main_context_pop_thread_default(m_context);
    })
{
}

GlibThread::~GlibThread()
{
    // Quitting from within the loop: before it runs, a quit from outside would be lost.
    run([this] { g_main_loop_quit(m_loop); });
    m_thread.join();
    g_main_loop_unref(m_loop);
    g_main_context_unref(m_context);
}

void GlibThread::run(const std::function<void()> &function)
{
    Task task{&function, {}};
    std::future<void> done = task.done.get_future();
    GSource *source = g_idle_source_new();
    g_source_set_priority(source, G_PRIORITY_DEFAULT);
    g_source_set_callback(
        source,
        [](gpointer data) -> gboolean {
            auto *pending = static_cast<Task *>(data);
            (*pending->function)();
            pending->done.set_value();
            return G_SOURCE_REMOVE;
        },
        &task, nullptr);
    g_source_attach(source, m_context);
    g_source_unref(source);
    done.wait();
}

} // namespace orrin::demo
