// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "util/log/filelogdevice.h"

#include <contract/util/logmanager.h>

#include <QList>
#include <QMutex>

#include <map>
#include <memory>

namespace orrin::olog {

/*! Name of the log file inside the folder of setFileDevicePath(); a running file device goes on under its old
    name. Safe from any thread. */
ORRINSDK_UTIL_EXPORT void setLogFileName(const QString &name);
/*! Returns when all lines logged before are in the file. */
ORRINSDK_UTIL_EXPORT void flushFileDevice();

/*! What a LogManager holds.

    Two locks, never both at once: \a tables guards names, masks and the list of devices, \a writing makes the
    calls of the devices follow one another. */
class LogManagerPrivate
{
public:
    mutable QMutex tables;
    QMutex writing;

    std::atomic<unsigned> level{LL_Warning | LL_Error};
    std::atomic<unsigned> enabledModules{~0u};
    // Maps keep their nodes in place, which the pointers handed out rely on.
    std::map<Module, std::atomic<unsigned>> enabledSubmodules;
    std::map<Module, LogModule> modules;
    QList<QSharedPointer<LogDevice>> devices;

    QSharedPointer<FileLogDevice> fileDevice;
    QString fileName = QStringLiteral("orrinsdk.log");
    long long maximumFileSize = 0;
};

} // namespace orrin::olog
