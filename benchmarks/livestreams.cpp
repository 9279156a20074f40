// SPDX-License-Identifier: GPL-3.0-or-later
// Sixteen live streams, 640x360 at 15 per second, in one process, without drawing: CPU of the client, threads, frames shown and
// replaced, memory. The demo server runs beside it as another process.
//
//   bench_livestreams [SECONDS]     default 60; the table has a line for each full minute
#include "demoserverprocess.h"

#include <contract/core/abstractstreamprocessor.h>
#include <contract/core/camera.h>
#include <contract/core/connectionmanager.h>
#include <contract/core/displayoutput.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/server.h>
#include <contract/core/servergroup.h>
#include <contract/gui/display.h>
#include <module/orrinsdkqml.h>
#include <video/qmlvideoprovider.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTest>
#include <QTimer>

#include <cstdio>
#include <sys/resource.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int StreamCount = 16;

double cpuSeconds()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval &time) { return double(time.tv_sec) + double(time.tv_usec) / 1e6; };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

qint64 statusValue(QByteArrayView key)
{
    QFile file(u"/proc/self/status"_s);
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (line.startsWith(key))
            return line.mid(key.size()).simplified().split(' ').constFirst().toLongLong();
    }
    return -1;
}

orrin::Display *displayOf(orrin::AbstractStreamProcessor *processor)
{
    auto output = processor->outputs().constFirst().dynamicCast<orrin::DisplayOutput>();
    return dynamic_cast<orrin::Display *>(output->presenter()->displays().constFirst().get());
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QStandardPaths::setTestModeEnabled(true);
    const int seconds = argc > 1 ? qMax(5, atoi(argv[1])) : 60;

    orrin::test::DemoServerProcess server;
    if (!server.start()) {
        std::fprintf(stderr, "%s\n", qPrintable(server.errorText()));
        return 1;
    }
    orrin::OrrinSDK::initInstance(u"Orrinworks"_s, u"bench_livestreams"_s, nullptr, u"bench.log"_s);
    orrin::ConnectionManager *manager = orrin::OrrinSDK::instance()->connectionManager();
    QSignalSpy complete(manager, &orrin::ConnectionManager::initialConnectionComplete);
    manager->connectToServer(u"admin"_s, u"orrin-admin"_s, orrin::CorvaneUrl(u"127.0.0.1:%1"_s.arg(server.port()), 8601), true);
    if (!complete.wait(12000)) {
        std::fprintf(stderr, "no login\n");
        return 1;
    }

    std::vector<std::pair<orrin::Server *, orrin::Channel *>> cameras;
    for (orrin::Server *each : manager->servers()) {
        for (const auto &channel : each->channels(orrin::Server::SortBySortId)) {
            if (qobject_cast<orrin::Camera *>(channel.data()) && channel->isEnabled())
                cameras.emplace_back(each, channel);
        }
    }
    std::vector<QSharedPointer<orrin::AbstractStreamProcessor>> streams;
    for (int i = 0; i < StreamCount; ++i) {
        const auto &[owner, channel] = cameras.at(std::size_t(i) % cameras.size());
        auto stream = orrin::QmlVideoProvider::instance().createStreamProcessor(unsigned(owner->group()->id()), unsigned(owner->id()),
                                                                               unsigned(channel->id()), -1);
        stream->inputControl()->setStreamPreference(3);
        stream->inputControl()->live(0);
        streams.push_back(stream);
    }
    QTest::qWait(3000);

    std::printf("%d live streams\n%8s %8s %8s %9s %9s %9s\n", StreamCount, "second", "CPU %", "threads", "shown", "replaced", "RSS MiB");
    double cpu = cpuSeconds();
    int since = 0;
    for (int second = 1; second <= seconds; ++second) {
        QTest::qWait(1000);
        if (second % 60 != 0 && second != seconds && second != 10)
            continue;
        quint64 shown = 0;
        quint64 replaced = 0;
        for (const auto &stream : streams) {
            shown += displayOf(stream.data())->deliveredFrames();
            replaced += displayOf(stream.data())->replacedFrames();
        }
        const double now = cpuSeconds();
        std::printf("%8d %8.1f %8lld %9llu %9llu %9.1f\n", second, (now - cpu) / (second - since) * 100, statusValue("Threads:"),
                    static_cast<unsigned long long>(shown), static_cast<unsigned long long>(replaced), double(statusValue("VmRSS:")) / 1024);
        std::fflush(stdout);
        cpu = now;
        since = second;
    }
    streams.clear();
    orrin::OrrinSDK::shutdown();
    return 0;
}
