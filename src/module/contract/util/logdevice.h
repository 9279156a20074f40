// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/util/export.h>
#include <contract/util/logitem.h>

namespace orrin::olog {

/*! Where log lines go. write() is called on whichever thread logs, one call at a time. */
class ORRINSDK_UTIL_EXPORT LogDevice
{
public:
    enum class Type { File, Message, Other };

    virtual ~LogDevice() = default;
    virtual void write(const LogItem &item) = 0;
    virtual Type type() const = 0;
};

} // namespace orrin::olog
