// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/util/export.h>
#include <contract/util/olog.h>

namespace orrin::olog {

/*! One line of the log. The `const char *` members point to texts that live as long as the process. */
class ORRINSDK_UTIL_EXPORT LogItem
{
public:
    /*! \a subModules is a bit mask; \a object is the address of whoever logs, may be null; \a moduleName is the name shown. */
    LogItem(LogLevel level, Module module, unsigned subModules, const char *moduleName, const char *file,
            const char *function, const void *object, const QByteArray &objectName, const QByteArray &message);

    LogLevel level() const { return m_level; }
    Module module() const { return m_module; }
    unsigned subModules() const { return m_subModules; }
    const char *moduleName() const { return m_moduleName; }
    const char *file() const { return m_file; }
    const char *function() const { return m_function; }
    const void *object() const { return m_object; }
    const QByteArray &objectName() const { return m_objectName; }
    const QByteArray &message() const { return m_message; }
    const QDateTime &time() const { return m_time; }

    /*! The line as it stands in a log file, without a line feed. */
    QByteArray toLine() const;

private:
    LogLevel m_level;
    Module m_module;
    unsigned m_subModules;
    const char *m_moduleName;
    const char *m_file;
    const char *m_function;
    const void *m_object;
    QByteArray m_objectName;
    QByteArray m_message;
    QDateTime m_time;
};

} // namespace orrin::olog
