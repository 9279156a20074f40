// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>

#include <QString>
#include <QTimeZone>

namespace orrin {

/*! The zone that a device's clock names: an IANA name, or a POSIX TZ text such as
    "CET-1CEST,M3.5.0,M10.5.0/3". Where only the offset of a POSIX text can be told, it is a zone of that fixed
    offset; a text that says nothing gives UTC. */
ORRINSDK_CORE_EXPORT QTimeZone timeZoneFromDevice(const QString &text);

} // namespace orrin
