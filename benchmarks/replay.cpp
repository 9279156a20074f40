// SPDX-License-Identifier: GPL-3.0-or-later
// Recorded video over TLS from the demo server, which runs beside as another process, without drawing: how long from a command to the very frame, and
// sixteen tiles at several rates.
//
//   bench_replay [SECONDS]     default 10, for each row of the tiles
#include "demoserverprocess.h"

#include <contract/core/abstractstreamprocessor.h>
#include <contract/core/camera.h>
#include <contract/core/connectionmanager.h>
#include <contract/core/displayfactory.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/server.h>
#include <contract/core/servergroup.h>
#include <contract/core/splinkedfactory.h>
#include <contract/gui/display.h>
#include <contract/gui/guispmfactory.h>
#include <contract/gui/imagerenderinginterface.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTest>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <sys/resource.h>
#include <vector>

using namespace orrin;
using namespace Qt::StringLiterals;

namespace {

constexpr Time300 Second = 300;
constexpr Time300 FrameStep = 20; // 15 a second
constexpr int TileCount = 16;

class Renderer : public ImageRenderingInterface
{
public:
    std::function<void(Time300)> shown;

    void setVideoFrame(const VideoFrame &frame) override
    {
        last = frame.imageRef().time();
        ++frames;
        if (shown)
            shown(last);
    }
    void setError(const PlaybackError &, int) override { ++errors; }
    void showBusySpinnerWheel() override {}
    void clearBusySpinnerWheel() override {}
    bool isBusyWheelActive() override { return false; }
    void moveViewingArea(double, double) override {}
    void moveViewingArea(const QPointF &, const QPointF &) override {}
    void zoom(int) override {}
    bool renderImage(const VideoFrame &, const QSizeF &, QPainter *) override { return false; }
    Time300 renderedVideoFrameTime() override { return last; }
    double zoomSpeed() const override { return 0; }
    void setZoomSpeed(double) override {}
    QRectF zoomRect() override { return {}; }
    void setZoomRect(const QRectF &) override {}
    QRectF zoomScaledRect() override { return {}; }
    double zoomScaledX() override { return 0; }
    double zoomScaledY() override { return 0; }
    void setZoomScale(double, double) override {}
    void setZoomInfo(const ZoomInfo &) override {}
    void zoomOut() override {}
    void startZooming(double, int) override {}
    void stopZooming() override {}
    void startMovingViewingArea(double, double) override {}
    void stopMovingViewingArea() override {}
    void setForceRenderSameTimestamp(bool) override {}

    Time300 last = 0;
    int frames = 0;
    int errors = 0;
};

class Displays : public DisplayFactory
{
public:
    void setDisplayDecorator(const QSharedPointer<DisplayDecorator> &) override {}
    std::shared_ptr<DisplayInterface> createDisplay(ChannelUID, QSharedPointer<PlaybackState>, WidgetType, DisplayType,
                                                    const QString &, const QString &, const QRectF &, const ZoomInfo &) override
    {
        auto display = std::make_shared<orrin::Display>();
        renderer = QSharedPointer<Renderer>::create();
        display->setRenderer(renderer);
        return display;
    }
    WidgetType type() const override { return WidgetType::QuickItem; }
    DisplayType displayType() const override { return DisplayType::Video; }

    QSharedPointer<Renderer> renderer;
};

struct Stream
{
    explicit Stream(ChannelUID channel)
        : displays(QSharedPointer<Displays>::create())
        , factory(QSharedPointer<SPMFactory>(new GuiSPMFactory(displays)), nullptr, nullptr, nullptr)
        , processor(factory.createProcessor(channel, -1))
    {
        processor->start();
    }
    SPAbstractInputControl &control() { return *processor->inputControl(); }
    Renderer &renderer() { return *displays->renderer; }
    bool jump(Time300 to)
    {
        control().jump(to, 1);
        return QTest::qWaitFor([this, to] { return renderer().last == to; }, 10'000);
    }

    QSharedPointer<Displays> displays;
    SPLinkedFactory factory;
    QSharedPointer<AbstractStreamProcessor> processor;
};

double cpuSeconds()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval &time) { return double(time.tv_sec) + double(time.tv_usec) / 1e6; };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

double residentMiB()
{
    QFile file(u"/proc/self/status"_s);
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (line.startsWith("VmRSS:"))
            return line.mid(6).simplified().split(' ').constFirst().toDouble() / 1024;
    }
    return -1;
}

void printTimes(const char *name, std::vector<double> ms, int asked)
{
    std::sort(ms.begin(), ms.end());
    if (ms.empty()) {
        std::printf("%-24s %6d asked, none shown\n", name, asked);
        return;
    }
    std::printf("%-24s %6d %6zu %8.1f %8.1f %8.1f\n", name, asked, ms.size(), ms[ms.size() / 2], ms[ms.size() * 95 / 100], ms.back());
    std::fflush(stdout);
}

/*! Commands at a steady pace; each that is shown counts from its call to its very frame. */
void measurePace(Stream &stream, Time300 base, int perSecond, bool scrub)
{
    constexpr int Count = 150;
    std::vector<double> ms;
    QElapsedTimer clock;
    std::vector<std::pair<Time300, qint64>> asked;
    stream.renderer().shown = [&](Time300 time) {
        for (const auto &[target, at] : asked) {
            if (target == time)
                ms.push_back(double(clock.nsecsElapsed() - at) / 1e6);
        }
    };
    clock.start();
    for (int i = 0; i < Count; ++i) {
        const Time300 target = base + (i * 7919) % (3600 * 15) * FrameStep;
        asked.emplace_back(target, clock.nsecsElapsed());
        if (scrub)
            stream.control().scrub(target, SPInputControlInterface::NoMark);
        else
            stream.control().jump(target, 1);
        QTest::qWait(qMax<int>(1, int((i + 1) * 1000 / perSecond - clock.elapsed())));
    }
    QTest::qWait(500);
    stream.renderer().shown = {};
    printTimes(qPrintable(u"%1, %2 per second"_s.arg(scrub ? u"scrub"_s : u"jump"_s).arg(perSecond)), std::move(ms), Count);
}

void measureSteps(Stream &stream, Time300 base)
{
    constexpr int Count = 100;
    std::vector<double> ms;
    stream.jump(base + 30 * Second);
    for (int i = 1; i <= Count; ++i) {
        const Time300 target = base + 30 * Second - i * FrameStep;
        QElapsedTimer clock;
        clock.start();
        stream.control().stepBack();
        if (QTest::qWaitFor([&] { return stream.renderer().last == target; }, 5000))
            ms.push_back(double(clock.nsecsElapsed()) / 1e6);
    }
    printTimes("step back", std::move(ms), Count);
}

void measureTiles(std::vector<std::unique_ptr<Stream>> &tiles, Time300 base, double rate, int seconds)
{
    for (auto &tile : tiles) {
        tile->control().pause(0);
        tile->control().jump(base, 1);
    }
    if (!QTest::qWaitFor([&] { return std::ranges::all_of(tiles, [&](const auto &tile) { return tile->renderer().last == base; }); }, 20'000))
        std::printf("not all tiles are there\n");
    int frames = 0;
    int late = 0;
    double worst = 0;
    QElapsedTimer clock;
    clock.start();
    struct Start
    {
        Time300 time = 0;
        double ms = -1;
    };
    std::vector<Start> starts(tiles.size());
    for (std::size_t i = 0; i < tiles.size(); ++i) {
        tiles[i]->renderer().shown = [&, i](Time300 time) {
            const double now = double(clock.nsecsElapsed()) / 1e6;
            ++frames;
            if (starts[i].ms < 0) {
                starts[i] = {time, now};
                return;
            }
            const double behind = now - starts[i].ms - double(time - starts[i].time) / 0.3 / rate;
            worst = std::max(worst, behind);
            late += behind > 50 ? 1 : 0;
        };
        if (rate < 0) {
            tiles[i]->control().rewind(int(-rate));
        } else if (rate > 2) {
            tiles[i]->control().fastForward(int(rate));
        } else {
            tiles[i]->control().setSpeed(rate);
            tiles[i]->control().play(SPInputControlInterface::FromHere, SPInputControlInterface::NoMark);
        }
    }
    QTest::qWait(2000);
    frames = late = 0;
    worst = 0;
    const double cpu = cpuSeconds();
    QElapsedTimer span;
    span.start();
    QTest::qWait(seconds * 1000);
    const double passed = double(span.elapsed()) / 1000;
    std::printf("%6gx %12.1f %10.2f %10.1f %8.1f %10.1f\n", rate, frames / passed, frames ? 100.0 * late / frames : 0.0, worst,
                (cpuSeconds() - cpu) / passed * 100, residentMiB());
    std::fflush(stdout);
    for (auto &tile : tiles)
        tile->renderer().shown = {};
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QStandardPaths::setTestModeEnabled(true);
    const int seconds = argc > 1 ? qMax(2, atoi(argv[1])) : 10;

    test::DemoServerProcess server;
    if (!server.start()) {
        std::fprintf(stderr, "%s\n", qPrintable(server.errorText()));
        return 1;
    }
    OrrinSDK::initInstance(u"Orrinworks"_s, u"bench_replay"_s, nullptr, u"bench.log"_s);
    ConnectionManager *manager = OrrinSDK::instance()->connectionManager();
    QSignalSpy complete(manager, &ConnectionManager::initialConnectionComplete);
    manager->connectToServer(u"admin"_s, u"orrin-admin"_s, CorvaneUrl(u"127.0.0.1:%1"_s.arg(server.port()), 8601), true);
    if (!complete.wait(12'000)) {
        std::fprintf(stderr, "no login\n");
        return 1;
    }
    Server *north = nullptr;
    for (Server *each : manager->servers())
        north = each->name() == u"North"_s ? each : north;
    if (!north)
        return 1;
    // Two days ago, at half past an hour, where the cameras used have no gap.
    const qint64 now = QDateTime::currentSecsSinceEpoch();
    const Time300 base = (now - now % 3600 - 48 * 3600 - 1800) * Second;

    for (const bool low : {true, false}) {
        Stream stream(north->channelById(1)->uid());
        stream.control().setStreamPreference(low ? 3 : 1);
        stream.control().pause(0);
        if (!stream.jump(base)) {
            std::fprintf(stderr, "no recording\n");
            return 1;
        }
        std::printf("From the command to the very frame, %s, milliseconds\n%-24s %6s %6s %8s %8s %8s\n", low ? "640x360" : "1280x720", "", "asked",
                    "shown", "median", "p95", "worst");
        for (const bool scrub : {false, true}) {
            for (const int pace : {10, 30})
                measurePace(stream, base, pace, scrub);
        }
        measureSteps(stream, base);
    }

    std::vector<std::unique_ptr<Stream>> tiles;
    for (int i = 0; i < TileCount; ++i) {
        tiles.push_back(std::make_unique<Stream>(north->channelById(std::vector{1, 2, 4, 6}[std::size_t(i) % 4])->uid()));
        tiles.back()->control().setStreamPreference(3);
    }
    std::printf("\n%d tiles of 640x360\n%7s %12s %10s %10s %8s %10s\n", TileCount, "rate", "frames/s", "late %", "worst ms", "CPU %", "RSS MiB");
    for (const double rate : {1.0, 4.0, 64.0, -1.0})
        measureTiles(tiles, base, rate, seconds);
    tiles.clear();
    OrrinSDK::shutdown();
    return 0;
}
