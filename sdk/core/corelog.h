// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/util/olog.h>

#include <QString>

namespace orrin {

/*! Writes one line of the core to the log. \a function lives as long as the process. Never hand over a
    password, nor a URL that may carry one. Safe from any thread. */
void logCore(olog::LogLevel level, const char *function, const QString &message);

} // namespace orrin
