// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include <cstdarg>
#include <cstddef>
#include <optional>

namespace orrin {

/*! Formats like C99 `vsnprintf`. */
using LogFormatter = int (*)(char *buffer, std::size_t size, const char *format, std::va_list arguments);

/*! The longest line, in bytes. */
constexpr int MaximumLogLineLength = 64 * 1024;

/*! The text of a log line, or nothing when it could not be formatted; the reason then stands on standard error as
    "logclient error:" (the format is wrong), "logclient error2:" (longer than MaximumLogLineLength) or
    "logclient error3:" (the text changed while it was read). */
std::optional<QByteArray> formatLogLine(LogFormatter formatter, const char *format, std::va_list arguments);

} // namespace orrin
