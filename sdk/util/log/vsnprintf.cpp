// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/util/vsnprintf.h>

#include <cstdio>

namespace orrin::osal {

int vsnprintf_c99(char *buffer, std::size_t size, const char *format, std::va_list arguments)
{
    if (!format || (!buffer && size > 0))
        return -1;
    return std::vsnprintf(buffer, size, format, arguments);
}

} // namespace orrin::osal
