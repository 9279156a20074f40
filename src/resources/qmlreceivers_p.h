// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QMetaMethod;
class QObject;

namespace orrin {

/*! Drops all receivers of \a signal of \a object: connections, and QML's bindings and handlers too, which QObject::disconnect() does
    not reach. Main thread. */
void dropReceivers(QObject *object, const QMetaMethod &signal);

} // namespace orrin
