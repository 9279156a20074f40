// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/eventdescription.h"

#include <contract/core/export.h>

#include <QList>
#include <QStringList>

namespace orrin {

class Server;

/*! The way from sessions to the live list. Main thread; nothing happens without a root object. */
namespace eventrecorder {

/*! Puts \a events of \a server, oldest first, into the live list: as one insertion of rows, with the names that server
    and channels have now. */
ORRINSDK_CORE_EXPORT void record(const Server &server, const QList<EventDescription> &events);

/*! Notes what causes the events of the server of that uid have. */
ORRINSDK_CORE_EXPORT void noteCauses(quint64 serverUid, const QStringList &causes);

} // namespace eventrecorder

} // namespace orrin
