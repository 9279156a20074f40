// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/util/olog.h>

#include <atomic>

/*! Writes a trace line of the class that holds \a client; the arguments are not evaluated while tracing is off. */
#define ORRIN_TRACE(client, ...)                                                                                           \
    do {                                                                                                                   \
        if ((client).isTraceEnabled())                                                                                     \
            (client).trace(__FILE__, __func__, __VA_ARGS__);                                                               \
    } while (false)

namespace orrin {

/*! The way of one class to the log: a member of classes that log, built with them.

    Reads the module's number from the log manager once; a line costs two loads while tracing is off. Safe from any thread. */
class LogClient
{
public:
    /*! The number under which this module logs. */
    static constexpr olog::Module Module = 0x20000;

    /*! \a objectName is shown with each line and lives as long as the process; \a object, which may be null, is only printed.
        \a subModules is a bit mask; a line is written when it meets the enabled mask. */
    explicit LogClient(const char *objectName, const void *object = nullptr, unsigned subModules = 1);

    bool isTraceEnabled() const;

    /*! Writes a trace line if isTraceEnabled(). \a format and what follows are as for printf. A line that cannot be formatted
        is dropped, with the reason on standard error. */
    void trace(const char *file, const char *function, const char *format, ...) const
        Q_ATTRIBUTE_FORMAT_PRINTF(4, 5);

    /*! The module's name in the log, "Unknown" when it has none. */
    const char *moduleName() const { return m_moduleName; }
    /*! The mask of enabled modules, as the log manager holds it. */
    const std::atomic<unsigned> *enabledModules() const { return m_enabledModules; }

private:
    const char *m_objectName;
    const void *m_object;
    unsigned m_subModules;
    const std::atomic<unsigned> *m_enabledModules;
    const std::atomic<unsigned> *m_enabledSubmodules;
    const char *m_moduleName;
};

} // namespace orrin
