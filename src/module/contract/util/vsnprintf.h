// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/util/export.h>

#include <cstdarg>
#include <cstddef>

namespace orrin::osal {

/*! Formats as C99 `vsnprintf` does on every platform: writes at most \a size bytes with the closing zero and returns the
    length that the whole text has, or a negative value when the format is wrong. */
ORRINSDK_UTIL_EXPORT int vsnprintf_c99(char *buffer, std::size_t size, const char *format, std::va_list arguments);

} // namespace orrin::osal
