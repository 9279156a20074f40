// SPDX-License-Identifier: GPL-3.0-or-later
// A grid of live tiles, 640x360 at 15 per second, beside the same grid of Qt Multimedia's MediaPlayer and VideoOutput on the same streams:
// CPU by thread, frames shown and replaced, memory; what a tile without a picture costs; and how long it takes from a double click in
// the viewer's grid to the first picture of the large stream.
//
//   xvfb-run -a -s "-screen 0 1920x1080x24" bench_tiles [SECONDS]     default 10, for each grid
//
// Each measurement is a process of its own, one after the other, against one demo server.
#include "demoserverprocess.h"
#include "tilemeasure.h"

#include <contract/core/camera.h>
#include <contract/core/connectionmanager.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/server.h>
#include <contract/core/servergroup.h>

#include <QApplication>
#include <QProcess>
#include <QSignalSpy>
#include <QStandardPaths>

#include <cstdio>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int PhaseTimeoutMs = 180000;

// "RTSP port/camera" of all cameras that are switched on.
QStringList cameraAddresses(const orrin::test::DemoServerProcess &server)
{
    QStringList addresses;
    const std::vector<orrin::Server *> recorders = orrin::OrrinSDK::instance()->connectionManager()->servers();
    for (const orrin::Server *recorder : recorders) {
        for (const auto &channel : recorder->channels(orrin::Server::SortBySortId)) {
            if (qobject_cast<orrin::Camera *>(channel.data()) && channel->isEnabled())
                addresses.append(u"%1/%2"_s.arg(server.rtspPort(recorder->id())).arg(channel->id()));
        }
    }
    return addresses;
}

QStringList measureInOwnProcess(const QStringList &arguments)
{
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), arguments);
    if (!process.waitForFinished(PhaseTimeoutMs)) {
        process.kill();
        process.waitForFinished(5000);
    }
    // Decoders talk a lot there; it matters when there is no result.
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        std::fprintf(stderr, "%s\n", process.readAllStandardError().right(2000).constData());
    return QString::fromUtf8(process.readAllStandardOutput()).simplified().split(u' ');
}

void printGrid(const char *name, const QStringList &values, const QStringList &reference)
{
    std::printf("%-22s", name);
    for (const QString &value : values)
        std::printf(" %9s", qPrintable(value));
    const double ours = values.value(0).toDouble();
    const double theirs = reference.value(0).toDouble();
    if (theirs > 0)
        std::printf(" %9.2f", ours / theirs);
    std::printf("\n");
    std::fflush(stdout);
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QStandardPaths::setTestModeEnabled(true);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == u"--measure"_s)
        return measureTiles(arguments.mid(2));

    const int seconds = qBound(3, arguments.value(1, u"10"_s).toInt(), 3600);
    orrin::test::DemoServerProcess server;
    if (!server.start({u"--plain-rtsp"_s, u"--max-sessions"_s, u"1000"_s})) {
        std::fprintf(stderr, "%s\n", qPrintable(server.errorText()));
        return 1;
    }
    if (!logIn(server.port()))
        return 1;
    const QStringList cameras = cameraAddresses(server);
    orrin::OrrinSDK::shutdown();

    const auto measure = [&](const QString &kind, int tiles) {
        return measureInOwnProcess({u"--measure"_s, kind, QString::number(tiles), QString::number(seconds),
                                    QString::number(server.port()), cameras.join(u',')});
    };
    for (const int tiles : {16, 36}) {
        std::printf("%d tiles, %d s: CPU in %% of a core\n%-22s %9s %9s %9s %9s %9s %9s %9s %9s %9s %9s %9s\n", tiles, seconds, "", "all", "GUI",
                    "render", "GL", "others", "tiles", "shown/s", "replaced", "threads", "RSS MiB", "ratio");
        const QStringList ours = measure(u"grid"_s, tiles);
        const QStringList theirs = measure(u"reference-grid"_s, tiles);
        printGrid("VideoOutput", ours, theirs);
        printGrid("Qt Multimedia", theirs, theirs);
    }
    std::printf("\nA tile without a picture\n%-22s %9s %9s %9s\n", "", "ms", "KiB", "ratio");
    const QStringList ours = measure(u"empty"_s, 100);
    const QStringList item = measure(u"empty-item"_s, 100);
    const QStringList theirs = measure(u"reference-empty"_s, 100);
    printGrid("VideoOutput", ours, theirs);
    printGrid("VideoDisplay alone", item, theirs);
    printGrid("Qt Multimedia", theirs, theirs);

    std::printf("\nDouble click in a grid of 16 until the first picture of 1280x720, ms\n%-22s %9s %9s %9s %9s\n", "", "median", "least", "most", "ratio");
    const QStringList click = measure(u"click"_s, 16);
    const QStringList player = measure(u"reference-click"_s, 16);
    printGrid("viewer", click, player);
    printGrid("new MediaPlayer", player, player);
    return 0;
}
