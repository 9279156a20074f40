// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/util/export.h>
#include <contract/util/logdevice.h>
#include <contract/util/logmodule.h>
#include <contract/util/olog.h>

#include <atomic>
#include <memory>

namespace orrin::olog {

class LogManagerPrivate;

/*! The log of the process: what is enabled, and where it goes. Safe from any thread. */
class ORRINSDK_UTIL_EXPORT LogManager
{
public:
    static LogManager *instance();

    void addLogDevice(const QSharedPointer<LogDevice> &device);
    void removeLogDevice(const QSharedPointer<LogDevice> &device);

    /*! The mask of enabled modules; the pointer holds for the life of the process. */
    const std::atomic<unsigned> *enabledModules() const;
    /*! The mask of enabled sub-modules of \a module; the pointer holds for the life of the process. */
    const std::atomic<unsigned> *enabledSubmodules(Module module);
    void setEnabledSubmodules(Module module, unsigned mask);

    /*! The module of that number, or null when none was registered. */
    const LogModule *logModule(Module module) const;
    /*! Gives \a module a name; the first one given stands. */
    void registerModule(Module module, const QByteArray &name);

    /*! The mask of LogLevel bits that are written; errors and warnings at the start. */
    void setLogLevel(unsigned mask);
    unsigned logLevel() const;

    /*! Hands \a item to all devices, if its level is enabled. */
    void log(const LogItem &item);

    LogManager(const LogManager &) = delete;
    LogManager &operator=(const LogManager &) = delete;

private:
    LogManager();
    ~LogManager();

    std::unique_ptr<LogManagerPrivate> d;
};

} // namespace orrin::olog
