// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QObject>

class QSocketNotifier;

namespace orrin::demo {

/*! Reads lines from standard input without blocking. A line above 4096 bytes is cut there. GUI thread. */
class StandardInput : public QObject
{
    Q_OBJECT

public:
    static constexpr qsizetype MaximumLine = 4096;

    using QObject::QObject;

    /*! Begins to read. */
    void start();

Q_SIGNALS:
    void line(const QString &text);
    /*! The other end closed it; nothing more comes. */
    void closed();

private:
    void readSome();

    QSocketNotifier *m_notifier = nullptr;
    QByteArray m_buffer;
};

} // namespace orrin::demo
