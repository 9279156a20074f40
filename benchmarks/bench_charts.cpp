// SPDX-License-Identifier: GPL-3.0-or-later
// One chart over a table of many samples of two statistics: the time to take the samples in, to the first frame that shows them, and to the frame after another
// statistic is chosen, in the median of the rounds; and the memory of the process that the table and the chart take.
//
//   bench_charts [ROUNDS]     default 5; under xvfb-run
#include "core/stats/statsmodel_p.h"

#include <contract/core/statsmodel.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickStyle>
#include <QQuickView>
#include <QSignalSpy>
#include <QTest>
#include <QTimeZone>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <vector>

using namespace orrin;
using namespace Qt::StringLiterals;

void qml_register_types_orrinsdkqml();

namespace {

constexpr qint64 Start = 1767315600000;
constexpr qint64 IntervalMs = 10000;
constexpr qint64 PageSize = 5000;

struct Round
{
    double fillMs = 0;
    double firstPaintMs = 0;
    double changeMs = 0;
    int rows = 0;
};

double residentMiB()
{
    QFile file(u"/proc/self/statm"_s);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toDouble() * 4096 / (1 << 20);
}

void fill(StatsModel &model, qint64 samples)
{
    model.d_func()->setHeadings({u"CPU%"_s, u"ntp_ms"_s}, IntervalMs);
    const auto at = [](qint64 sample) { return QDateTime::fromMSecsSinceEpoch(Start + sample * IntervalMs, QTimeZone::UTC); };
    model.setSpan(at(0), at(samples));
    for (qint64 begin = 0; begin < samples; begin += PageSize) {
        StatsPage page;
        page.series = {{u"CPU%"_s, {}, {}}, {u"ntp_ms"_s, {}, {}}};
        for (qint64 i = begin; i < std::min(begin + PageSize, samples); ++i) {
            page.times.append(Start + i * IntervalMs);
            page.series[0].low.append(50 + 40 * std::sin(double(i) / 300));
            page.series[1].low.append(double(i % 977));
        }
        model.d_func()->applyPage(page);
    }
}

bool waitForFrame(QQuickView &view)
{
    QSignalSpy frames(&view, &QQuickWindow::frameSwapped);
    view.update();
    return frames.wait(60000);
}

Round measure(qint64 samples)
{
    Round round;
    QElapsedTimer timer;
    StatsModel model;
    timer.start();
    fill(model, samples);
    round.fillMs = double(timer.nsecsElapsed()) / 1e6;
    round.rows = model.rowCount();

    QQuickView view;
    view.rootContext()->setContextProperty(u"statsModel"_s, &model);
    view.rootContext()->setContextProperty(u"headingsModel"_s, model.headings());
    view.resize(1280, 720);
    timer.start();
    QQmlComponent component(view.engine());
    component.setData("import QtQuick\nimport orrinsdkqml\nItem { width: 1280; height: 720; Chart { objectName: \"it\"; anchors.fill: parent } }",
                      QUrl(u"qrc:/bench.qml"_s));
    QObject *root = component.create();
    view.setContent({}, nullptr, root);
    view.show();
    if (!waitForFrame(view))
        std::fprintf(stderr, "no frame was drawn\n");
    round.firstPaintMs = double(timer.nsecsElapsed()) / 1e6;

    auto *chart = root->findChild<QQuickItem *>(u"it"_s);
    timer.start();
    QMetaObject::invokeMethod(chart, "showStatistic", Q_ARG(QString, u"ntp_ms"_s));
    waitForFrame(view);
    round.changeMs = double(timer.nsecsElapsed()) / 1e6;
    return round;
}

template <typename Member> double median(std::vector<Round> rounds, Member member)
{
    std::ranges::nth_element(rounds, rounds.begin() + static_cast<std::ptrdiff_t>(rounds.size() / 2), {}, member);
    return rounds[rounds.size() / 2].*member;
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QQuickStyle::setStyle(u"Material"_s);
    [[maybe_unused]] volatile auto keep = &qml_register_types_orrinsdkqml;
    const int rounds = argc > 1 ? std::max(1, std::atoi(argv[1])) : 5;

    measure(10); // so that nobody pays for the libraries
    std::printf("%10s  %8s  %10s  %16s  %16s  %12s\n", "samples", "rows", "fill (ms)", "first paint (ms)", "change (ms)", "memory (MiB)");
    for (const qint64 samples : {1000, 100000, 1000000}) {
        const double before = residentMiB();
        std::vector<Round> results;
        for (int i = 0; i < rounds; ++i)
            results.push_back(measure(samples));
        std::printf("%10lld  %8d  %10.1f  %16.1f  %16.1f  %12.1f\n", static_cast<long long>(samples), results.front().rows,
                    median(results, &Round::fillMs), median(results, &Round::firstPaintMs), median(results, &Round::changeMs),
                    residentMiB() - before);
        std::fflush(stdout);
    }
    return 0;
}
