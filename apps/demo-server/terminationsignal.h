// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

namespace orrin::demo {

/*! Turns SIGTERM and SIGINT into a Qt signal. One per process, GUI thread. */
class TerminationSignal : public QObject
{
    Q_OBJECT

public:
    TerminationSignal();
    ~TerminationSignal() override;

Q_SIGNALS:
    void received();
};

} // namespace orrin::demo
