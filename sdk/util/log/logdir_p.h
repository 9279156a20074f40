// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/util/export.h>

#include <QString>

namespace orrin {

/*! The names under which logDir() lies; empty ones stand for the application's own. Called by the root
    object. Safe from any thread. */
ORRINSDK_UTIL_EXPORT void setLogDirNames(const QString &organisation, const QString &application);

} // namespace orrin
