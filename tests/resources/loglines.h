// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/util/logdevice.h>
#include <contract/util/logmanager.h>

#include <QSharedPointer>

#include <vector>

namespace orrin {

/*! Collects the trace lines that are written while it lives. */
class LogLines
{
public:
    LogLines()
        : m_level(olog::LogManager::instance()->logLevel())
        , m_device(QSharedPointer<Device>::create())
    {
        olog::LogManager::instance()->addLogDevice(m_device);
        olog::LogManager::instance()->setLogLevel(olog::LL_Trace);
    }
    ~LogLines()
    {
        olog::LogManager::instance()->setLogLevel(m_level);
        olog::LogManager::instance()->removeLogDevice(m_device);
    }

    const std::vector<olog::LogItem> &items() const { return m_device->items; }

    /*! Whether the only line has \a text as function and message and is about \a object; forgets it. */
    bool takeOnly(const char *text, const void *object)
    {
        const std::vector<olog::LogItem> items = std::exchange(m_device->items, {});
        return items.size() == 1 && items[0].function() == QByteArrayView(text) && items[0].message() == QByteArrayView(text)
            && items[0].object() == object && items[0].module() == 0x20000 && items[0].level() == olog::LL_Trace;
    }

private:
    struct Device : olog::LogDevice
    {
        void write(const olog::LogItem &item) override { items.push_back(item); }
        Type type() const override { return Type::Other; }
        std::vector<olog::LogItem> items;
    };

    unsigned m_level;
    QSharedPointer<Device> m_device;
};

} // namespace orrin
