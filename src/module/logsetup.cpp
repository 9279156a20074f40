// SPDX-License-Identifier: GPL-3.0-or-later
#include "module/logsetup.h"

#include <contract/util/logdir.h>
#include <contract/util/logmanager.h>
#include <contract/util/messagelog.h>

#include <memory>

namespace orrin {

namespace {

constexpr unsigned MessageLogLines = 500;
constexpr long long MaximumFileSize = 31457280; // 30 MiB

} // namespace

void setUpLogging()
{
    olog::LogManager *manager = olog::LogManager::instance();
    auto messageLog = std::make_unique<olog::MessageLog>();
    messageLog->setSize(MessageLogLines);
    manager->addLogDevice(QSharedPointer<olog::LogDevice>(messageLog.release()));
    olog::setMaxFileSize(MaximumFileSize);
    olog::setFileDevicePath(logDir());
}

} // namespace orrin
