// SPDX-License-Identifier: GPL-3.0-or-later
#include "util/log/logmanager_p.h"

#include <cstdio>
#include <cstdlib>

namespace orrin::olog {

std::atomic<bool> LG_trace_enabled{false};

namespace {

// A device that logs from inside write() would wait for itself.
thread_local bool insideWrite = false;

void stopFileDeviceAtExit();

// For the functions of this file, which are no members of the manager.
LogManagerPrivate *data = nullptr;

} // namespace

LogManager *LogManager::instance()
{
    // Never deleted: whatever logs while the process ends still finds it. The file is written out by the exit
    // handler.
    static LogManager *manager = [] {
        auto *made = new LogManager;
        data = made->d.get();
        std::atexit(stopFileDeviceAtExit);
        return made;
    }();
    return manager;
}

LogManager::LogManager() : d(std::make_unique<LogManagerPrivate>()) {}

LogManager::~LogManager() = default;

void LogManager::addLogDevice(const QSharedPointer<LogDevice> &device)
{
    if (!device)
        return;
    const QMutexLocker locker(&d->tables);
    if (!d->devices.contains(device))
        d->devices.append(device);
}

void LogManager::removeLogDevice(const QSharedPointer<LogDevice> &device)
{
    const QMutexLocker locker(&d->tables);
    d->devices.removeAll(device);
}

const std::atomic<unsigned> *LogManager::enabledModules() const
{
    return &d->enabledModules;
}

const std::atomic<unsigned> *LogManager::enabledSubmodules(Module module)
{
    const QMutexLocker locker(&d->tables);
    return &d->enabledSubmodules.try_emplace(module, ~0u).first->second;
}

void LogManager::setEnabledSubmodules(Module module, unsigned mask)
{
    const QMutexLocker locker(&d->tables);
    d->enabledSubmodules.try_emplace(module, ~0u).first->second.store(mask, std::memory_order_relaxed);
}

const LogModule *LogManager::logModule(Module module) const
{
    const QMutexLocker locker(&d->tables);
    const auto found = d->modules.find(module);
    return found == d->modules.end() ? nullptr : &found->second;
}

void LogManager::registerModule(Module module, const QByteArray &name)
{
    const QMutexLocker locker(&d->tables);
    d->modules.try_emplace(module, module, name);
}

void LogManager::setLogLevel(unsigned mask)
{
    d->level.store(mask, std::memory_order_relaxed);
    LG_trace_enabled.store(mask & LL_Trace, std::memory_order_relaxed);
}

unsigned LogManager::logLevel() const
{
    return d->level.load(std::memory_order_relaxed);
}

void LogManager::log(const LogItem &item)
{
    if (!(item.level() & logLevel()) || insideWrite)
        return;
    QList<QSharedPointer<LogDevice>> devices;
    {
        const QMutexLocker locker(&d->tables);
        devices = d->devices;
    }
    if (devices.isEmpty())
        return;
    const QMutexLocker locker(&d->writing);
    insideWrite = true;
    for (const QSharedPointer<LogDevice> &device : std::as_const(devices))
        device->write(item);
    insideWrite = false;
}

unsigned maxLogLevel()
{
    return LL_Trace | LL_Debug | LL_Info | LL_Warning | LL_Error | LL_Timing | LL_Startup | LL_Graphics;
}

void setMaxFileSize(long long bytes)
{
    LogManager::instance();
    const QMutexLocker locker(&data->tables);
    data->maximumFileSize = qMax(0LL, bytes);
    if (data->fileDevice)
        data->fileDevice->setMaximumSize(data->maximumFileSize);
}

void setLogFileName(const QString &name)
{
    LogManager::instance();
    const QMutexLocker locker(&data->tables);
    if (!name.isEmpty() && !name.contains(u'/'))
        data->fileName = name;
}

void setFileDevicePath(const QString &path)
{
    LogManager *manager = LogManager::instance();
    QString fileName;
    long long maximumSize = 0;
    QSharedPointer<FileLogDevice> previous;
    {
        const QMutexLocker locker(&data->tables);
        fileName = data->fileName;
        maximumSize = data->maximumFileSize;
        previous.swap(data->fileDevice);
    }
    if (previous) {
        manager->removeLogDevice(previous);
        previous->stop();
    }
    if (path.isEmpty())
        return;
    const auto device = QSharedPointer<FileLogDevice>::create(path, fileName, maximumSize);
    if (!device->isOpen()) {
        std::fprintf(stderr, "log: cannot write into %s\n", qPrintable(path));
        return;
    }
    {
        const QMutexLocker locker(&data->tables);
        data->fileDevice = device;
    }
    manager->addLogDevice(device);
}

void flushFileDevice()
{
    LogManager::instance();
    QSharedPointer<FileLogDevice> device;
    {
        const QMutexLocker locker(&data->tables);
        device = data->fileDevice;
    }
    if (device)
        device->flush();
}

namespace {

void stopFileDeviceAtExit()
{
    QSharedPointer<FileLogDevice> device;
    {
        const QMutexLocker locker(&data->tables);
        device = data->fileDevice;
    }
    if (device)
        device->stop();
}

} // namespace

} // namespace orrin::olog
