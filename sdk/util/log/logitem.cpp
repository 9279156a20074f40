// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/util/logitem.h>

namespace orrin::olog {

namespace {

QByteArray levelName(LogLevel level)
{
    switch (level) {
    case LL_Trace:
        return QByteArrayLiteral("TRACE");
    case LL_Debug:
        return QByteArrayLiteral("DEBUG");
    case LL_Info:
        return QByteArrayLiteral("INFO");
    case LL_Warning:
        return QByteArrayLiteral("WARNING");
    case LL_Error:
        return QByteArrayLiteral("ERROR");
    case LL_Timing:
        return QByteArrayLiteral("TIMING");
    case LL_Startup:
        return QByteArrayLiteral("STARTUP");
    case LL_Graphics:
        return QByteArrayLiteral("GRAPHICS");
    }
    return QByteArray::number(static_cast<unsigned>(level));
}

} // namespace

LogItem::LogItem(LogLevel level, Module module, unsigned subModules, const char *moduleName, const char *file,
                 const char *function, const void *object, const QByteArray &objectName,
                 const QByteArray &message)
    : m_level(level)
    , m_module(module)
    , m_subModules(subModules)
    , m_moduleName(moduleName ? moduleName : "")
    , m_file(file ? file : "")
    , m_function(function ? function : "")
    , m_object(object)
    , m_objectName(objectName)
    , m_message(message)
    , m_time(QDateTime::currentDateTimeUtc())
{
}

QByteArray LogItem::toLine() const
{
    QByteArray line =
        m_time.toString(Qt::ISODateWithMs).toLatin1() + ' ' + levelName(m_level) + ' ' + m_moduleName;
    if (*m_function)
        line += QByteArrayLiteral(" [") + m_function + ']';
    if (m_object)
        line += QByteArrayLiteral(" 0x") + QByteArray::number(quintptr(m_object), 16);
    if (!m_objectName.isEmpty())
        line += ' ' + m_objectName;
    line += QByteArrayLiteral(": ") + m_message;
    // One item is one line, whatever came from outside into its text.
    line.replace('\n', ' ').replace('\r', ' ');
    return line;
}

} // namespace orrin::olog
