// SPDX-License-Identifier: GPL-3.0-or-later
// Events pour into the live list while a list view shows it: the share of time that the GUI thread works, of which the part without
// events, the rows that stand at the end, and the memory before and after.
//
//   bench_liveevents [EVENTS_PER_SECOND] [SECONDS]     default 200 and 60
#include "core/events/eventrecorder.h"
#include "testsite.h"

#include <contract/core/eventmanager.h>
#include <contract/core/eventmodel.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/server.h>
#include <module/orrinsdkqml.h>

#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QQmlContext>
#include <QQuickItem>
#include <QQuickView>
#include <QStandardPaths>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <ctime>

using namespace orrin;
using namespace Qt::StringLiterals;

namespace {

constexpr auto Source = R"(
import QtQuick
ListView {
    width: 800; height: 600
    model: liveEventModel
    reuseItems: true
    delegate: Row {
        required property string causeString
        required property string sourceName
        spacing: 12
        Text { text: parent.causeString; textFormat: Text.PlainText }
        Text { text: parent.sourceName; textFormat: Text.PlainText }
    }
})";

double threadSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) + double(time.tv_nsec) / 1e9;
}

double residentMiB()
{
    QFile file(u"/proc/self/statm"_s);
    if (!file.open(QIODevice::ReadOnly))
        return 0.0;
    return file.readAll().split(' ').value(1).toDouble() * 4096.0 / 1048576.0;
}

} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    QStandardPaths::setTestModeEnabled(true);
    const int rate = argc > 1 ? std::max(1, std::atoi(argv[1])) : 200;
    const int seconds = argc > 2 ? std::max(1, std::atoi(argv[2])) : 60;

    TestSite site;
    SiteDescription description = describeServer(1, 1);
    description.channels = {describeCamera(1, u"Gate"_s)};
    Server *server = site.login(description);
    if (!server)
        return 1;
    QQuickView view;
    initQmlContext(view.rootContext());
    QQmlComponent component(view.engine());
    component.setData(Source, QUrl());
    QObject *list = component.create(view.rootContext());
    if (!list) {
        std::fprintf(stderr, "%s\n", qPrintable(component.errorString()));
        return 1;
    }
    view.setContent(QUrl(), &component, list);
    view.show();
    const QSharedPointer<EventModel> events = OrrinSDK::instance()->eventManager()->liveEvents();

    const auto spin = [&](int milliseconds, bool feed) {
        int sent = 0;
        QElapsedTimer clock;
        clock.start();
        QTimer pace;
        // As pull points answer: ten times a second, a handful each.
        QObject::connect(&pace, &QTimer::timeout, &application, [&] {
            const int due = int(double(rate) * double(clock.elapsed()) / 1000.0) - sent;
            QList<EventDescription> batch;
            for (int i = 0; i < due; ++i) {
                EventDescription event;
                event.cause = u"Motion"_s;
                event.channelId = 1;
                event.time = QDateTime::currentDateTimeUtc();
                batch.append(event);
            }
            sent += due;
            eventrecorder::record(*server, batch);
        });
        if (feed)
            pace.start(100);
        const double before = threadSeconds();
        QTimer::singleShot(milliseconds, &application, [&] { application.quit(); });
        QGuiApplication::exec();
        return (threadSeconds() - before) / (double(clock.elapsed()) / 1000.0);
    };
    spin(1000, true);
    const double idle = spin(3000, false);
    const double memoryBefore = residentMiB();
    const double busy = spin(seconds * 1000, true);
    std::printf("events per second        %8d\nseconds                  %8d\nGUI thread, no events    %7.2f %%\n"
                "GUI thread, events       %7.2f %%\nrows at the end          %8d\nmemory before            %7.1f MiB\n"
                "memory after             %7.1f MiB\n",
                rate, seconds, 100.0 * idle, 100.0 * busy, events->rowCount(), memoryBefore, residentMiB());
    delete list;
    return 0;
}
