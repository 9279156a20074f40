// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/corelog.h"

#include <contract/util/logmanager.h>

namespace orrin {

void logCore(olog::LogLevel level, const char *function, const QString &message)
{
    constexpr olog::Module CoreModule = 0x10000;
    olog::LogManager *manager = olog::LogManager::instance();
    if (!(manager->logLevel() & level))
        return;
    manager->log(olog::LogItem(level, CoreModule, 1, "core", "", function, nullptr, {}, message.toUtf8()));
}

} // namespace orrin
