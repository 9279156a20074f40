// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/util/export.h>

#include <QByteArray>
#include <QDateTime>
#include <QSharedPointer>
#include <QString>

#include <atomic>

namespace orrin::olog {

/*! The number of a module that logs; the module `orrinsdkqml` is 0x20000. */
using Module = unsigned;

/*! Levels, as bits of the level mask. */
enum LogLevel : unsigned {
    LL_Trace = 0x01,
    LL_Debug = 0x02,
    LL_Info = 0x04,
    LL_Warning = 0x08,
    LL_Error = 0x10,
    LL_Timing = 0x20,
    LL_Startup = 0x40,
    LL_Graphics = 0x80,
};

/*! True while the level mask holds LL_Trace: the test that trace lines make before they format anything. */
extern ORRINSDK_UTIL_EXPORT std::atomic<bool> LG_trace_enabled;

/*! All levels. */
ORRINSDK_UTIL_EXPORT unsigned maxLogLevel();

/*! The size in bytes at which a log file is closed and the next one begun; 0 means no limit. Safe from any thread. */
ORRINSDK_UTIL_EXPORT void setMaxFileSize(long long bytes);

/*! Begins to log into files in \a path, which is made when missing. An empty path stops it. A folder that cannot be written
    is told once on standard error. Safe from any thread. */
ORRINSDK_UTIL_EXPORT void setFileDevicePath(const QString &path);

} // namespace orrin::olog
