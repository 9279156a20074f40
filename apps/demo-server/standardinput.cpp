// SPDX-License-Identifier: GPL-3.0-or-later
#include "standardinput.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>

#include <unistd.h>

namespace orrin::demo {

void StandardInput::start()
{
    m_notifier = new QSocketNotifier(STDIN_FILENO, QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &StandardInput::readSome);
}

void StandardInput::readSome()
{
    std::array<char, 4096> bytes;
    const ssize_t count = ::read(STDIN_FILENO, bytes.data(), bytes.size());
    if (count < 0 && (errno == EINTR || errno == EAGAIN))
        return;
    if (count <= 0) {
        m_notifier->setEnabled(false);
        Q_EMIT closed();
        return;
    }
    for (const char byte : QByteArrayView(bytes.data(), count)) {
        if (byte == '\n') {
            const QString text = QString::fromUtf8(m_buffer);
            m_buffer.clear();
            Q_EMIT line(text);
        } else if (m_buffer.size() < MaximumLine) {
            m_buffer += byte;
        }
    }
}

} // namespace orrin::demo
