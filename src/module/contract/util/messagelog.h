// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/util/export.h>
#include <contract/util/logdevice.h>

#include <memory>

namespace orrin::olog {

class MessageLogPrivate;

/*! A device that keeps the newest lines in memory. Safe from any thread. */
class ORRINSDK_UTIL_EXPORT MessageLog : public LogDevice
{
public:
    MessageLog();
    ~MessageLog() override;

    /*! How many lines are kept, 100 at first; the oldest are dropped. */
    void setSize(unsigned lines);

    void write(const LogItem &item) override;
    Type type() const override { return Type::Message; }

    /*! The lines kept, oldest first. */
    QList<QByteArray> lines() const;

private:
    std::unique_ptr<MessageLogPrivate> d;
};

} // namespace orrin::olog
