// SPDX-License-Identifier: GPL-3.0-or-later
#include "module/logclient.h"

#include "module/logclient_p.h"

#include <contract/util/logitem.h>
#include <contract/util/logmanager.h>
#include <contract/util/logmodule.h>
#include <contract/util/vsnprintf.h>

#include <array>
#include <cstdio>

namespace orrin {

namespace {

int format(LogFormatter formatter, char *buffer, std::size_t size, const char *text, std::va_list arguments)
{
    std::va_list copy;
    va_copy(copy, arguments);
    const int length = formatter(buffer, size, text, copy);
    va_end(copy);
    return length;
}

const char *nameOf(const olog::LogModule *module)
{
    return module ? module->name_cstr() : "Unknown";
}

} // namespace

std::optional<QByteArray> formatLogLine(LogFormatter formatter, const char *text, std::va_list arguments)
{
    std::array<char, 512> buffer;
    const int length = format(formatter, buffer.data(), buffer.size(), text, arguments);
    if (length < 0) {
        std::fprintf(stderr, "logclient error: the text cannot be formatted\n");
        return std::nullopt;
    }
    if (static_cast<std::size_t>(length) < buffer.size())
        return QByteArray(buffer.data(), length);

    if (length > MaximumLogLineLength) {
        std::fprintf(stderr, "logclient error2: a line of %d bytes is too long\n", length);
        return std::nullopt;
    }
    QByteArray line(length, Qt::Uninitialized);
    const int written = format(formatter, line.data(), static_cast<std::size_t>(length) + 1, text, arguments);
    if (written != length) {
        std::fprintf(stderr, "logclient error3: a line of %d bytes became one of %d\n", length, written);
        return std::nullopt;
    }
    return line;
}

LogClient::LogClient(const char *objectName, const void *object, unsigned subModules)
    : m_objectName(objectName)
    , m_object(object)
    , m_subModules(subModules)
    , m_enabledModules(olog::LogManager::instance()->enabledModules())
    , m_enabledSubmodules(olog::LogManager::instance()->enabledSubmodules(Module))
    , m_moduleName(nameOf(olog::LogManager::instance()->logModule(Module)))
{
}

bool LogClient::isTraceEnabled() const
{
    return olog::LG_trace_enabled.load(std::memory_order_relaxed) &&
           (m_subModules & m_enabledSubmodules->load(std::memory_order_relaxed)) != 0;
}

void LogClient::trace(const char *file, const char *function, const char *format, ...) const
{
    if (!isTraceEnabled())
        return;
    std::va_list arguments;
    va_start(arguments, format);
    const std::optional<QByteArray> message = formatLogLine(&osal::vsnprintf_c99, format, arguments);
    va_end(arguments);
    if (!message)
        return;
    olog::LogManager::instance()->log(olog::LogItem(olog::LL_Trace, Module, m_subModules, m_moduleName, file,
                                                    function, m_object, QByteArray(m_objectName), *message));
}

} // namespace orrin
