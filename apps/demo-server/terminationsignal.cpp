// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminationsignal.h"

#include <QSocketNotifier>

#include <array>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace orrin::demo {

namespace {

std::array<int, 2> pipeEnds{-1, -1};

// A signal handler may do next to nothing: it writes a byte for the event loop to find.
void handler(int)
{
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = ::write(pipeEnds[1], &byte, 1);
}

} // namespace

TerminationSignal::TerminationSignal()
{
    if (::pipe2(pipeEnds.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    auto *notifier = new QSocketNotifier(pipeEnds[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] {
        char byte = 0;
        if (::read(pipeEnds[0], &byte, 1) == 1)
            Q_EMIT received();
    });
    struct sigaction action = {};
    action.sa_handler = handler;
    sigaction(SIGTERM, &action, nullptr);
    sigaction(SIGINT, &action, nullptr);
}

TerminationSignal::~TerminationSignal()
{
    std::signal(SIGTERM, SIG_DFL);
    std::signal(SIGINT, SIG_DFL);
    for (int &end : pipeEnds) {
        ::close(end);
        end = -1;
    }
}

} // namespace orrin::demo
