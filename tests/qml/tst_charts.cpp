// SPDX-License-Identifier: GPL-3.0-or-later
#include "hostsettings.h"

#include "core/stats/statsmodel_p.h"

#include <contract/core/statsmodel.h>

#include <QApplication>
#include <QCategoryAxis>
#include <QDateTimeAxis>
#include <QDir>
#include <QLineSeries>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlProperty>
#include <QQuickItem>
#include <QQuickStyle>
#include <QQuickView>
#include <QSignalSpy>
#include <QTest>
#include <QTimeZone>
#include <QValueAxis>
#include <QXYSeries>

#include <cmath>
#include <limits>

using namespace orrin;
using namespace Qt::StringLiterals;

void qml_register_types_orrinsdkqml();

namespace {

constexpr qint64 Start = 1767315600000;
constexpr qint64 Minute = 60000;

/*! A host with a chart, or whatever \a type is, over a model that the test fills. */
class ChartHost
{
public:
    explicit ChartHost(const QByteArray &type = "Chart")
        : m_type(type)
    {
        model.d_func()->setHeadings({u"Status"_s, u"CPU%"_s, u"ntp_ms"_s, u"Disk_1"_s, u"C3"_s}, 10000);
    }

    void fill(const QList<double> &values, const QString &heading, const QString &second = {}, const QList<double> &more = {})
    {
        model.setSpan(at(0), at(std::max<qsizetype>(values.size() - 1, 1)));
        StatsPage page;
        for (qsizetype i = 0; i < values.size(); ++i)
            page.times.append(Start + i * Minute);
        page.series = {{heading, values, {}}};
        if (!second.isEmpty())
            page.series.append({second, more, {}});
        model.d_func()->applyPage(page);
    }

    bool show()
    {
        warnings = std::make_unique<QSignalSpy>(view.engine(), &QQmlEngine::warnings);
        view.rootContext()->setContextProperty(u"statsModel"_s, &model);
        view.rootContext()->setContextProperty(u"headingsModel"_s, model.headings());
        QQmlComponent component(view.engine());
        component.setData("import QtQuick\nimport orrinsdkqml\nItem { width: 900; height: 600; " + m_type + " { anchors.fill: parent } }",
                          QUrl(u"qrc:/test.qml"_s));
        QObject *root = component.create();
        if (!root) {
            qWarning() << component.errors();
            return false;
        }
        view.setContent({}, nullptr, root);
        view.resize(900, 600);
        view.show();
        return QTest::qWaitForWindowExposed(&view);
    }

    static QList<QQuickItem *> itemsBelow(const QQuickItem *parent)
    {
        QList<QQuickItem *> found;
        const auto children = parent->childItems();
        for (QQuickItem *child : children) {
            found.append(child);
            found.append(itemsBelow(child));
        }
        return found;
    }

    QQuickItem *chartItem(int index = 0)
    {
        const QList<QQuickItem *> items = itemsBelow(view.rootObject());
        for (QQuickItem *item : items) {
            if (QString::fromLatin1(item->metaObject()->className()).startsWith("Chart_QMLTYPE"_L1) && index-- == 0)
                return item;
        }
        return nullptr;
    }
    int chartCount()
    {
        int count = 0;
        while (chartItem(count))
            ++count;
        return count;
    }

    /*! What is called so inside the chart's file. */
    template <typename Type> Type *part(const QString &id, int index = 0)
    {
        QQuickItem *chart = chartItem(index);
        if (!chart)
            return nullptr;
        const QQmlContext *context = qmlContext(chart->childItems().value(0));
        return qobject_cast<Type *>(context ? context->objectForName(id) : nullptr);
    }

    void choose(const QString &heading)
    {
        QMetaObject::invokeMethod(chartItem(), "showStatistic", Q_ARG(QString, heading));
    }

    QImage picture(const char *name)
    {
        QTest::qWait(120);
        const QImage image = view.grabWindow().convertToFormat(QImage::Format_RGB32);
        const QString folder = qEnvironmentVariable("ORRIN_CHART_PICTURES");
        if (!folder.isEmpty())
            image.save(QDir(folder).filePath(QString::fromLatin1(name) + u".png"_s));
        return image;
    }

    static QDateTime at(qint64 minute) { return QDateTime::fromMSecsSinceEpoch(Start + minute * Minute, QTimeZone::UTC); }

    StatsModel model;
    QQuickView view;
    std::unique_ptr<QSignalSpy> warnings;

private:
    const QByteArray m_type;
};

bool isLine(QRgb pixel, QRgb line)
{
    return std::abs(qRed(pixel) - qRed(line)) < 60 && std::abs(qGreen(pixel) - qGreen(line)) < 60 && std::abs(qBlue(pixel) - qBlue(line)) < 60;
}

/*! The rows in which the line passes the column, inside the plot. */
QList<int> lineRows(const QImage &image, const QRectF &plot, int x, QRgb line)
{
    QList<int> rows;
    for (int y = int(plot.top()) + 1; y < int(plot.bottom()); ++y) {
        if (isLine(image.pixel(x, y), line))
            rows.append(y);
    }
    return rows;
}

} // namespace

class tst_Charts : public QObject
{
    Q_OBJECT

private:
    static QRectF plotOf(ChartHost &host)
    {
        const auto *chart = host.part<QQuickItem>(u"chart"_s);
        const QRectF plot = chart->property("plotArea").toRectF();
        return plot.translated(chart->mapToScene({0, 0}));
    }

private Q_SLOTS:
    void initTestCase()
    {
        QQuickStyle::setStyle(u"Material"_s);
        [[maybe_unused]] volatile auto keep = &qml_register_types_orrinsdkqml;
    }

    void message_isShown_untilThereAreSamples()
    {
        ChartHost host;
        QVERIFY(host.show());
        auto *stack = host.part<QQuickItem>(u"stackLayout"_s);
        QVERIFY(stack);
        QCOMPARE(stack->property("currentIndex").toInt(), 0);
        auto *frame = host.part<QQuickItem>(u"messageFrame"_s);
        QCOMPARE(frame->childItems().first()->property("text").toString(), StatsModel::getStatusDescription(StatsModel::Idle));
        QCOMPARE(frame->property("color").value<QColor>(), QColor(u"#2b2e36"_s));
        host.picture("message");
        host.fill({1, 2, 3}, u"CPU%"_s);
        QTRY_COMPARE(stack->property("currentIndex").toInt(), 1);
        host.model.setSpan(ChartHost::at(-1000), ChartHost::at(-900));
        QTRY_COMPARE(stack->property("currentIndex").toInt(), 0);
        QCOMPARE(host.warnings->count(), 0);
    }

    void firstHeading_isChosen_atTheStart()
    {
        ChartHost host;
        host.fill({3, 3, 7, 3}, u"Status"_s);
        QVERIFY(host.show());
        QTRY_COMPARE(host.part<QObject>(u"statCombo"_s)->property("currentText").toString(), u"Status"_s);
        QCOMPARE(host.part<QObject>(u"chart"_s)->property("title").toString(), u"Recorder status"_s);
        QCOMPARE(host.part<QObject>(u"modelMapper"_s)->property("yColumn").toInt(), 2);
        const auto *line = host.part<QXYSeries>(u"line"_s);
        QCOMPARE(line->count(), 4);
        QCOMPARE(line->at(0).y(), 3.5);
        QCOMPARE(line->at(2).y(), 5.5);
        QCOMPARE(host.chartItem()->property("defaultMargins").toInt(), 5);
        QCOMPARE(host.chartItem()->property("defaultSpacing").toInt(), 3);
        QCOMPARE(host.warnings->count(), 0);
    }

    void headings_mayComeLater()
    {
        ChartHost host;
        host.model.d_func()->setHeadings({}, 10000);
        QVERIFY(host.show());
        QCOMPARE(host.part<QObject>(u"statCombo"_s)->property("currentText").toString(), QString());
        host.model.d_func()->setHeadings({u"CPU%"_s, u"Status"_s}, 10000);
        host.fill({3, 6}, u"Status"_s);
        QTRY_COMPARE(host.part<QObject>(u"statCombo"_s)->property("currentText").toString(), u"Status"_s);
        QTRY_COMPARE(host.part<QXYSeries>(u"line"_s)->count(), 2);
        QCOMPARE(host.part<QXYSeries>(u"line"_s)->at(1).y(), 4.5);
        // More at the end of the list leave the choice alone.
        host.fill({3, 6}, u"Status"_s, u"View_C1_fps"_s, {15, 15});
        QCOMPARE(host.part<QObject>(u"statCombo"_s)->property("currentText").toString(), u"Status"_s);
        QCOMPARE(host.warnings->count(), 0);
    }

    void line_isWhereItsValuesAre()
    {
        ChartHost host;
        QList<double> values;
        for (int i = 0; i < 61; ++i)
            values.append(i < 30 ? 10 : 50);
        host.fill(values, u"ntp_ms"_s);
        QVERIFY(host.show());
        host.choose(u"ntp_ms"_s);
        auto *line = host.part<QXYSeries>(u"line"_s);
        QTRY_COMPARE(line->count(), 61);
        auto *axis = qobject_cast<QValueAxis *>(host.part<QObject>(u"axisLoader"_s)->property("item").value<QObject *>());
        QVERIFY(axis);
        QCOMPARE(axis->min(), -10.0);
        QCOMPARE(axis->max(), 70.0);
        QCOMPARE(axis->tickCount(), 5);
        QCOMPARE(axis->minorTickCount(), 5);
        QCOMPARE(axis->titleText(), u"<font color='white'>ms</font>"_s);
        const QImage image = host.picture("line");
        const QRectF plot = plotOf(host);
        QVERIFY(plot.width() > 500);
        const auto expected = [&](double value) { return plot.bottom() - (value + 10) / 80 * plot.height(); };
        const QRgb colour = line->color().rgb();
        for (const auto &[share, value] : {std::pair(0.25, 10.0), std::pair(0.75, 50.0)}) {
            const QList<int> rows = lineRows(image, plot, int(plot.left() + share * plot.width()), colour);
            QVERIFY2(!rows.isEmpty(), qPrintable(QString::number(value)));
            for (const int row : rows)
                QVERIFY2(std::abs(row - expected(value)) < 5, qPrintable(u"%1 %2"_s.arg(row).arg(expected(value))));
        }
        // Labels stand at the left of the plot and below it.
        int light = 0;
        for (int y = int(plot.top()); y < int(plot.bottom()) + 40 && y < image.height(); ++y) {
            for (int x = 0; x < int(plot.left()); ++x)
                light += qGray(image.pixel(x, y)) > 200 ? 1 : 0;
        }
        QVERIFY2(light > 50, qPrintable(QString::number(light)));
        QCOMPARE(host.warnings->count(), 0);
    }

    void axis_followsTheType_data()
    {
        QTest::addColumn<QString>("heading");
        QTest::addColumn<QList<double>>("values");
        QTest::addColumn<QStringList>("labels");
        QTest::addColumn<double>("top");
        QTest::addColumn<double>("number");
        QTest::newRow("system") << u"Status"_s << QList<double>{6, 6, 6} << QStringList{u"Restart"_s, u"Not recording"_s, u"Recording"_s,
            u"Fault"_s, u"Warning"_s, u"Standby"_s, u"Standby2"_s, u"Unknown"_s} << 9.0 << 4.5;
        QTest::newRow("disk") << u"Disk_1"_s << QList<double>{'X', 'X', 'X'} << QStringList{u"Good"_s, u"Read-only"_s, u"Rebuilding"_s, u"Missing"_s,
            u"Failed"_s, u"Foreign"_s, u"Degraded"_s, u"Formatted"_s, u"Not formatted"_s, u"Unknown"_s} << 11.0 << 5.5;
        QTest::newRow("camera") << u"C3"_s << QList<double>{22, 22, 22} << QStringList{u"None"_s, u"Recording"_s, u"Bad"_s, u"Not Permitted"_s,
            u"Video Loss"_s, u"Initializing"_s, u"Unauthorized"_s, u"Not connected"_s, u"Stream fail"_s, u"Awaiting restart"_s, u"Check log"_s,
            u"Net problem"_s, u"Configuring"_s, u"Connecting"_s, u"Connected/Starting"_s, u"No Stream"_s, u"Unknown"_s} << 18.0 << 5.5;
        QTest::newRow("system, other code") << u"Status"_s << QList<double>{77, -4, 4} << QStringList() << 9.0 << 8.5;
        QTest::newRow("disk, other letter") << u"Disk_1"_s << QList<double>{'?', 'g', 1} << QStringList() << 11.0 << 10.5;
        QTest::newRow("camera, other code") << u"C3"_s << QList<double>{99, 2, 3} << QStringList() << 18.0 << 17.5;
    }

    void axis_followsTheType()
    {
        QFETCH(const QString, heading);
        QFETCH(const QList<double>, values);
        QFETCH(const QStringList, labels);
        QFETCH(const double, top);
        QFETCH(const double, number);
        ChartHost host;
        host.fill(values, heading);
        QVERIFY(host.show());
        // From one kind of axis to another and back.
        for (const QString &each : {u"CPU%"_s, heading, u"ntp_ms"_s, heading})
            host.choose(each);
        auto *axis = qobject_cast<QCategoryAxis *>(host.part<QObject>(u"axisLoader"_s)->property("item").value<QObject *>());
        QVERIFY(axis);
        if (!labels.isEmpty())
            QCOMPARE(axis->categoriesLabels(), labels);
        QCOMPARE(axis->min(), 0.0);
        QCOMPARE(axis->max(), top);
        auto *line = host.part<QXYSeries>(u"line"_s);
        QTRY_COMPARE(line->count(), 3);
        QCOMPARE(line->at(1).y(), number);
        const QImage image = host.picture(QByteArray("axis-" + heading.toLatin1()).constData());
        const QRectF plot = plotOf(host);
        const QList<int> rows = lineRows(image, plot, int(plot.center().x()), line->color().rgb());
        QVERIFY(!rows.isEmpty());
        for (const int row : rows)
            QVERIFY(std::abs(row - (plot.bottom() - number / top * plot.height())) < 5);
        QCOMPARE(host.warnings->count(), 0);
    }

    void unknownType_getsTheValueAxis()
    {
        ChartHost host;
        host.fill({1, 2}, u"CPU%"_s);
        QVERIFY(host.show());
        for (const int type : {3, 1, 2, 99, 4, -1}) {
            QMetaObject::invokeMethod(host.chartItem(), "setYaxisType", Q_ARG(int, type));
            const auto *item = host.part<QObject>(u"axisLoader"_s)->property("item").value<QObject *>();
            QCOMPARE(qobject_cast<const QValueAxis *>(item) != nullptr && !qobject_cast<const QCategoryAxis *>(item),
                     type == 1 || type == 99 || type == -1);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
        QCOMPARE(host.warnings->count(), 0);
    }

    void oddSamples_doNoHarm_data()
    {
        QTest::addColumn<QList<double>>("values");
        const double infinite = std::numeric_limits<double>::infinity();
        QTest::newRow("empty") << QList<double>();
        QTest::newRow("single") << QList<double>{5};
        QTest::newRow("constant") << QList<double>{5, 5, 5};
        QTest::newRow("zero") << QList<double>{0, 0, 0};
        QTest::newRow("not a number") << QList<double>{std::nan(""), 1, std::nan("")};
        QTest::newRow("nothing else") << QList<double>{std::nan(""), std::nan("")};
        QTest::newRow("infinite") << QList<double>{infinite, 2, -infinite};
        QTest::newRow("huge") << QList<double>{1e300, -1e300, 1};
        QTest::newRow("tiny") << QList<double>{1e-300, 2e-300};
    }

    void oddSamples_doNoHarm()
    {
        QFETCH(const QList<double>, values);
        for (const char *heading : {"ntp_ms", "Disk_1", "C3", "Status"}) {
            ChartHost host;
            host.fill(values, QString::fromLatin1(heading));
            QVERIFY(host.show());
            host.choose(QString::fromLatin1(heading));
            const QImage image = host.picture(QByteArray(QByteArray("odd-") + QTest::currentDataTag()).constData());
            QVERIFY(!image.isNull());
            const bool hasRows = host.model.rowCount() > 0;
            const auto *time = host.part<QDateTimeAxis>(u"axisX"_s);
            if (hasRows) {
                QTRY_COMPARE(time->min(), host.model.getFrom());
                QTRY_COMPARE(time->max(), host.model.getTo());
            }
            QCOMPARE(host.part<QObject>(u"stackLayout"_s)->property("currentIndex").toInt(), hasRows ? 1 : 0);
            QCOMPARE(host.warnings->count(), 0);
        }
    }

    void tooltip_tellsTheValue()
    {
        ChartHost host;
        host.fill({3, 3, 3, 3, 3}, u"Status"_s, u"CPU%"_s, {20, 20, 20, 20, 20});
        QVERIFY(host.show());
        auto *tooltip = host.part<QObject>(u"tooltip"_s);
        QVERIFY(tooltip);
        const auto hover = [&](const QPointF &point) {
            QMetaObject::invokeMethod(host.chartItem(), "showTooltip", Q_ARG(QPointF, point));
        };
        host.picture("before the tooltip");
        hover({double(Start + 2 * Minute), 3.5});
        QTRY_VERIFY(tooltip->property("visible").toBool());
        const QString date = QDateTime::fromMSecsSinceEpoch(Start + 2 * Minute).toString(Qt::TextDate);
        // The place is rounded to pixels of a five minute plot, so seconds may differ.
        QVERIFY2(tooltip->property("text").toString().startsWith(date.left(13)), qPrintable(tooltip->property("text").toString()));
        QVERIFY(tooltip->property("text").toString().endsWith(u"\nStatus: Recording"_s));
        QCOMPARE(tooltip->property("timeout").toInt(), 2500);
        host.picture("tooltip");
        // At the right end it keeps inside the margin.
        hover({double(Start + 4 * Minute), 3.5});
        const auto *chart = host.part<QQuickItem>(u"chart"_s);
        const double right = tooltip->property("x").toDouble() + tooltip->property("width").toDouble();
        QVERIFY(right <= chart->width());
        host.choose(u"CPU%"_s);
        QTest::qWait(50);
        hover({double(Start + 2 * Minute), 20.0});
        const QString value = tooltip->property("text").toString().section(u"\nValue: "_s, 1);
        QVERIFY2(std::abs(value.toDouble() - 20) < 0.5, qPrintable(tooltip->property("text").toString()));
        QCOMPARE(host.warnings->count(), 0);
    }

    void pointer_bringsTheTooltip()
    {
        ChartHost host;
        host.fill({3, 3, 3, 3, 3}, u"Status"_s);
        QVERIFY(host.show());
        host.picture("before hovering");
        const QRectF plot = plotOf(host);
        auto *tooltip = host.part<QObject>(u"tooltip"_s);
        const QPoint onTheLine(int(plot.center().x()), int(plot.bottom() - 3.5 / 9 * plot.height()));
        // The line is two pixels wide, and the chart looks for it when it draws.
        int offset = 40;
        const auto isShownAfterAMove = [&] {
            offset = offset <= -6 ? 6 : offset - 1;
            QTest::mouseMove(&host.view, onTheLine + QPoint(0, offset));
            host.view.update();
            QTest::qWait(30);
            return tooltip->property("visible").toBool();
        };
        QTRY_VERIFY_WITH_TIMEOUT(isShownAfterAMove(), 8000);
        QVERIFY(tooltip->property("text").toString().endsWith(u"Status: Recording"_s));
    }

    void container_holdsCharts_andHidesItsMinus()
    {
        ChartHost host("ChartContainer");
        host.fill({3, 3, 7}, u"Status"_s, u"CPU%"_s, {20, 40, 60});
        QVERIFY(host.show());
        QTRY_COMPARE(host.chartCount(), 1);
        QCOMPARE(host.chartItem()->height(), 600.0);
        QCOMPARE(host.chartItem()->width(), 870.0);
        QQuickItem *plus = nullptr;
        QQuickItem *minus = nullptr;
        const auto items = ChartHost::itemsBelow(host.view.rootObject());
        for (QQuickItem *item : items) {
            if (item->property("text").toString() == "+"_L1 && item->inherits("QQuickToolButton"))
                plus = item;
            if (item->property("text").toString() == "-"_L1 && item->inherits("QQuickToolButton"))
                minus = item;
        }
        QVERIFY(plus && minus);
        QCOMPARE(plus->width(), plus->height());
        QVERIFY(!minus->isVisible());
        QMetaObject::invokeMethod(plus, "click");
        QMetaObject::invokeMethod(plus, "click");
        QTRY_COMPARE(host.chartCount(), 3);
        QVERIFY(!minus->isVisible());
        QTRY_COMPARE(host.chartItem(2)->y(), 1200.0);
        // Charts are independent of each other.
        QMetaObject::invokeMethod(host.chartItem(1), "showStatistic", Q_ARG(QString, u"CPU%"_s));
        QCOMPARE(host.part<QObject>(u"chart"_s, 0)->property("title").toString(), u"Recorder status"_s);
        QCOMPARE(host.part<QObject>(u"chart"_s, 1)->property("title").toString(), u"Processor load"_s);
        host.picture("container");
        QCOMPARE(host.warnings->count(), 0);
    }

    void filter_choosesTheFirstThatIsLeft()
    {
        ChartHost host;
        host.fill({3, 3, 7}, u"Status"_s, u"CPU%"_s, {20, 40, 60});
        QVERIFY(host.show());
        auto *combo = host.part<QObject>(u"statCombo"_s);
        combo->setProperty("filterText", u"cpu"_s);
        QTRY_COMPARE(host.part<QObject>(u"chart"_s)->property("title").toString(), u"Processor load"_s);
        combo->setProperty("filterText", u"nothing has this"_s);
        QTRY_COMPARE(combo->property("currentText").toString(), QString());
        QTRY_COMPARE(host.part<QObject>(u"chart"_s)->property("title").toString(), QString());
        combo->setProperty("filterText", QString());
        QCOMPARE(host.warnings->count(), 0);
    }

    void longSpan_isDrawnQuickly()
    {
        ChartHost host;
        host.model.setSpan(ChartHost::at(0), ChartHost::at(100000));
        StatsPage page;
        page.series = {{u"ntp_ms"_s, {}, {}}};
        for (int i = 0; i < 100000; ++i) {
            page.times.append(Start + i * Minute);
            page.series[0].low.append(i == 31234 ? 500 : std::sin(i / 500.0) * 10);
        }
        host.model.d_func()->applyPage(page);
        QElapsedTimer timer;
        timer.start();
        QVERIFY(host.show());
        host.choose(u"ntp_ms"_s);
        auto *line = host.part<QXYSeries>(u"line"_s);
        QVERIFY(line->count() > 2000);
        QVERIFY(line->count() <= 4100);
        qInfo("%d points after %lld ms", int(line->count()), timer.elapsed());
        const QImage image = host.picture("long");
        // The one peak reaches its height.
        const QRectF plot = plotOf(host);
        const auto *axis = host.part<QObject>(u"axisLoader"_s)->property("item").value<QValueAxis *>();
        const double peakRow = plot.bottom() - (500 - axis->min()) / (axis->max() - axis->min()) * plot.height();
        bool reached = false;
        for (int x = int(plot.left() + 0.30 * plot.width()); x < int(plot.left() + 0.33 * plot.width()); ++x) {
            for (const int row : lineRows(image, plot, x, line->color().rgb()))
                reached |= std::abs(row - peakRow) < 8;
        }
        QVERIFY(reached);
        QVERIFY2(timer.elapsed() < 15000, qPrintable(QString::number(timer.elapsed())));
    }

    void runningSpan_movesTheLine()
    {
        ChartHost host;
        host.model.setRunningSpan(10 * Minute);
        const qint64 end = host.model.getTo().toMSecsSinceEpoch();
        StatsPage page;
        page.series = {{u"CPU%"_s, {}, {}}};
        for (int i = 59; i >= 0; --i) {
            page.times.append(end - i * 10000);
            page.series[0].low.append(i);
        }
        host.model.d_func()->applyPage(page);
        QVERIFY(host.show());
        host.choose(u"CPU%"_s);
        auto *line = host.part<QXYSeries>(u"line"_s);
        QTRY_COMPARE(line->count(), host.model.rowCount());
        for (int step = 1; step <= 20; ++step) {
            host.model.d_func()->advance(end + step * 10000);
            StatsPage next;
            next.times = {end + step * 10000};
            next.series = {{u"CPU%"_s, {double(100 + step)}, {}}};
            host.model.d_func()->applyPage(next);
            QCOMPARE(line->count(), host.model.rowCount());
        }
        QCOMPARE(line->at(line->count() - 1).y(), 120.0);
        QCOMPARE(line->at(0).x(), double(host.model.index(0, 1).data().toLongLong()));
        QCOMPARE(host.warnings->count(), 0);
    }
};

QTEST_MAIN(tst_Charts)
#include "tst_charts.moc"
