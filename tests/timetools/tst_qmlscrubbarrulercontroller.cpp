// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/qmlscrubbarrulercontroller.h"

#include <QElapsedTimer>
#include <QImage>
#include <QPainter>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QTest>
#include <QTimeZone>

#include <atomic>
#include <limits>
#include <memory>

using namespace orrin;
using namespace Qt::StringLiterals;

namespace {

constexpr int Width = 600;
constexpr int Height = 40;
constexpr qint64 ExampleMs = 1'000'003'000;
constexpr qlonglong Most = std::numeric_limits<qlonglong>::max();
constexpr qlonglong Least = std::numeric_limits<qlonglong>::min();

const QVariant &utc()
{
    static const QVariant zone = QVariant::fromValue(QTimeZone::utc());
    return zone;
}

/*! A ruler that counts how often it paints. */
class CountingRuler : public QmlScrubBarRulerController
{
public:
    using QmlScrubBarRulerController::QmlScrubBarRulerController;
    void paint(QPainter *painter) override
    {
        ++count;
        QmlScrubBarRulerController::paint(painter);
    }
    std::atomic<int> count = 0;
};

/*! Black of that opacity over white. */
int grey(double opacity)
{
    return qRound(255 * (1.0 - opacity));
}

/*! What \a ruler paints, over white. */
QImage painted(QmlScrubBarRulerController &ruler, QSize size = {Width, Height})
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    ruler.paint(&painter);
    return image;
}

/*! The columns of row \a y where a notch stands: the left of the two that its line covers whole. */
QList<int> notches(const QImage &image, int y = Height / 2)
{
    QList<int> columns;
    for (int x = 0; x + 1 < image.width(); ++x) {
        const int left = qGray(image.pixel(x, y));
        const int right = qGray(image.pixel(x + 1, y));
        const bool edge = x == 0 || qGray(image.pixel(x - 1, y)) > left;
        if (left < 240 && qAbs(left - right) <= 2 && edge)
            columns.append(x + 1);
    }
    return columns;
}

void setExample(QmlScrubBarRulerController &ruler)
{
    ruler.setSize(QSizeF(Width, Height));
    ruler.setRangeSecs(60);
    ruler.setNotchIntervalSecs(10);
    ruler.setTimeFromEpoch(ExampleMs, utc());
}

} // namespace

class tst_QmlScrubBarRulerController : public QObject
{
    Q_OBJECT

private:
    /*! Lets the window show what is due. */
    static bool showFrame(QQuickWindow &window)
    {
        QSignalSpy swapped(&window, &QQuickWindow::frameSwapped);
        window.update();
        return swapped.wait();
    }

    static void checkExample(const QImage &image, int shift)
    {
        const QList<std::pair<int, double>> expected = {{30, 0.46}, {130, 0.66}, {230, 0.86},
                                                        {330, 0.94}, {430, 0.74}, {530, 0.54}};
        for (const auto &[notch, opacity] : expected) {
            const int x = notch + shift;
            // Fades by 0.002 a pixel, to both sides of the centre.
            const double here = opacity + (notch < Width / 2 ? 0.002 : -0.002) * shift;
            for (const int column : {x - 1, x}) {
                for (const int y : {Height / 4 + 1, Height / 2, Height * 3 / 4 - 2}) {
                    const int value = qGray(image.pixel(column, y));
                    QVERIFY2(qAbs(value - grey(here)) <= 2,
                             qPrintable(u"%1, %2: %3 for %4"_s.arg(column).arg(y).arg(value).arg(grey(here))));
                }
            }
            for (const int y : {0, Height / 4 - 3, Height * 3 / 4 + 3, Height - 1})
                QCOMPARE(qGray(image.pixel(x, y)), 255);
            QCOMPARE(qGray(image.pixel(x - 4, Height / 2)), 255);
            QCOMPARE(qGray(image.pixel(x + 3, Height / 2)), 255);
        }
        QCOMPARE(notches(image),
                 QList<int>({30 + shift, 130 + shift, 230 + shift, 330 + shift, 430 + shift, 530 + shift}));
    }

private Q_SLOTS:
    void properties_havePositiveDefaults_whenNew()
    {
        QmlScrubBarRulerController ruler;
        QVERIFY(!ruler.currentTime().isValid());
        QVERIFY(ruler.rangeSecs() > 0);
        QVERIFY(ruler.notchIntervalSecs() > 0);
        const QMetaObject &meta = QmlScrubBarRulerController::staticMetaObject;
        QCOMPARE(meta.propertyCount() - meta.propertyOffset(), 2);
        QCOMPARE(meta.property(meta.propertyOffset()).typeName(), "qlonglong");
        QVERIFY(meta.indexOfMethod("addMsecs(int)") >= 0);
        QVERIFY(meta.indexOfMethod("setTimeFromEpoch(qlonglong,QVariant)") >= 0);
        QCOMPARE(meta.indexOfMethod("setCurrentTime(QDateTime)"), -1);
    }

    void setters_signalAChangeOnly()
    {
        QmlScrubBarRulerController ruler;
        QSignalSpy range(&ruler, &QmlScrubBarRulerController::rangeSecsChanged);
        QSignalSpy interval(&ruler, &QmlScrubBarRulerController::notchIntervalSecsChanged);
        ruler.setRangeSecs(77);
        ruler.setRangeSecs(77);
        QCOMPARE(ruler.rangeSecs(), 77);
        QCOMPARE(range.count(), 1);
        QCOMPARE(interval.count(), 0);
        ruler.setNotchIntervalSecs(7);
        ruler.setNotchIntervalSecs(7);
        QCOMPARE(ruler.notchIntervalSecs(), 7);
        QCOMPARE(range.count(), 1);
        QCOMPARE(interval.count(), 1);
    }

    void time_isSetAndMoved()
    {
        QmlScrubBarRulerController ruler;
        ruler.setTimeFromEpoch(ExampleMs, QVariant::fromValue(QTimeZone("Europe/Berlin")));
        QCOMPARE(ruler.currentTime().toMSecsSinceEpoch(), ExampleMs);
        QCOMPARE(ruler.currentTime().timeZone(), QTimeZone("Europe/Berlin"));
        ruler.addMsecs(-1000);
        QCOMPARE(ruler.currentTime().toMSecsSinceEpoch(), ExampleMs - 1000);
        ruler.addMsecs(2500);
        QCOMPARE(ruler.currentTime().toMSecsSinceEpoch(), ExampleMs + 1500);
        for (const QVariant &zone : {QVariant(), QVariant(u"Europe/Berlin"_s), QVariant::fromValue(QTimeZone())}) {
            ruler.setTimeFromEpoch(ExampleMs, utc());
            ruler.setTimeFromEpoch(ExampleMs, zone);
            QVERIFY(!ruler.currentTime().isValid());
        }
        ruler.addMsecs(5);
        QVERIFY(!ruler.currentTime().isValid());
    }

    void paint_followsTheExample()
    {
        QmlScrubBarRulerController ruler;
        setExample(ruler);
        checkExample(painted(ruler), 0);
    }

    void paint_movesToTheRight_asTimeGoesOn()
    {
        QmlScrubBarRulerController ruler;
        setExample(ruler);
        ruler.addMsecs(1000);
        checkExample(painted(ruler), 10);
        // Just before the next moment of a notch the row has gone an interval to the right, ...
        ruler.addMsecs(6000 - 1);
        const QImage before = painted(ruler);
        QCOMPARE(notches(before), QList<int>({99, 199, 299, 399, 499, 599}));
        // The next one shows at the edge, half of one pixel so far.
        QVERIFY(qAbs(qGray(before.pixel(0, Height / 2)) - grey(0.5)) <= 5);
        // ... and ten seconds after the start it is where it was then.
        ruler.addMsecs(3001);
        checkExample(painted(ruler), 0);
    }

    void paint_isOpaque_atTheCentre()
    {
        QmlScrubBarRulerController ruler;
        setExample(ruler);
        ruler.setTimeFromEpoch(1'000'000'000, utc());
        const QImage image = painted(ruler);
        QCOMPARE(qGray(image.pixel(Width / 2, Height / 2)), 0);
        QVERIFY(qAbs(qGray(image.pixel(100, Height / 2)) - grey(0.6)) <= 2);
        QVERIFY(qAbs(qGray(image.pixel(500, Height / 2)) - grey(0.6)) <= 2);
        // A notch at the left edge has the opacity that the painter came with.
        QCOMPARE(qGray(image.pixel(0, Height / 2)), 0);
    }

    void paint_ignoresTheZone()
    {
        QmlScrubBarRulerController ruler;
        setExample(ruler);
        const QImage expected = painted(ruler);
        for (const char *name : {"Europe/Berlin", "Asia/Kathmandu", "America/St_Johns"}) {
            ruler.setTimeFromEpoch(ExampleMs, QVariant::fromValue(QTimeZone(name)));
            QCOMPARE(painted(ruler), expected);
        }
    }

    void paint_alignsToUtc_notToLocalHours()
    {
        QmlScrubBarRulerController ruler;
        setExample(ruler);
        ruler.setRangeSecs(6 * 3600);
        ruler.setNotchIntervalSecs(3600);
        // Half past in UTC, the full hour in India.
        ruler.setTimeFromEpoch(1'767'268'800'000 + 1'800'000, QVariant::fromValue(QTimeZone("Asia/Kolkata")));
        QCOMPARE(notches(painted(ruler)), QList<int>({50, 150, 250, 350, 450, 550}));
    }

    void paint_drawsNotches_beforeTheEpoch()
    {
        QmlScrubBarRulerController ruler;
        setExample(ruler);
        // The left edge, -37 s, is aligned towards zero to -30 s.
        ruler.setTimeFromEpoch(-7000, utc());
        QCOMPARE(notches(painted(ruler)), QList<int>({30, 130, 230, 330, 430, 530}));
    }

    void paint_takesTheLeftTimeForTheCurrent_whenAPixelIsShorterThanAMillisecond()
    {
        QmlScrubBarRulerController ruler;
        ruler.setSize(QSizeF(3000, Height));
        ruler.setRangeSecs(2);
        ruler.setNotchIntervalSecs(1);
        ruler.setTimeFromEpoch(1'000'000'200, utc());
        // 200 ms are 300 pixels: the row begins at 300 - 1500 - 1500.
        QCOMPARE(notches(painted(ruler, {3000, Height})), QList<int>({300, 1800}));
    }

    void item_isRendered()
    {
        QQuickWindow window;
        window.setColor(Qt::white);
        window.resize(Width, Height);
        auto *ruler = new CountingRuler(window.contentItem());
        setExample(*ruler);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QTRY_VERIFY(ruler->count > 0);
        const QImage first = window.grabWindow();
        QCOMPARE(first.size(), QSize(Width, Height));
        checkExample(first, 0);
        ruler->addMsecs(1000);
        checkExample(window.grabWindow(), 10);
        ruler->setWidth(300);
        QCOMPARE(qGray(window.grabWindow().pixel(430, Height / 2)), 255);
    }

    void item_repaints_onlyWhenTheTimeChanges()
    {
        QQuickWindow window;
        window.resize(Width, Height);
        auto *ruler = new CountingRuler(window.contentItem());
        setExample(*ruler);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QTRY_VERIFY(ruler->count > 0);
        QVERIFY(showFrame(window));
        QVERIFY(showFrame(window));
        const int before = ruler->count;

        ruler->setRangeSecs(120);
        ruler->setNotchIntervalSecs(20);
        ruler->setTimeFromEpoch(ExampleMs, utc());
        ruler->setCurrentTime(ruler->currentTime());
        QVERIFY(showFrame(window));
        QVERIFY(showFrame(window));
        QCOMPARE(ruler->count, before);

        ruler->setTimeFromEpoch(ExampleMs + 1, utc());
        QVERIFY(showFrame(window));
        QCOMPARE(ruler->count, before + 1);
        ruler->setTimeFromEpoch(ExampleMs + 1, utc());
        QVERIFY(showFrame(window));
        QCOMPARE(ruler->count, before + 1);
    }

    // No value of any property may hang or crash it

    void paint_drawsNothing_whenANumberIsNotPositive_data()
    {
        QTest::addColumn<qlonglong>("range");
        QTest::addColumn<qlonglong>("interval");
        QTest::newRow("no range") << 0LL << 10LL;
        QTest::newRow("negative range") << -60LL << 10LL;
        QTest::newRow("least range") << Least << 10LL;
        QTest::newRow("no interval") << 60LL << 0LL;
        QTest::newRow("negative interval") << 60LL << -10LL;
        QTest::newRow("least interval") << 60LL << Least;
        QTest::newRow("nothing") << 0LL << 0LL;
    }

    void paint_drawsNothing_whenANumberIsNotPositive()
    {
        QFETCH(qlonglong, range);
        QFETCH(qlonglong, interval);
        QmlScrubBarRulerController ruler;
        setExample(ruler);
        ruler.setRangeSecs(range);
        ruler.setNotchIntervalSecs(interval);
        QImage empty(Width, Height, QImage::Format_RGB32);
        empty.fill(Qt::white);
        QCOMPARE(painted(ruler), empty);
    }

    void paint_ends_whateverTheNumbers()
    {
        QmlScrubBarRulerController ruler;
        const QList<qlonglong> numbers = {1, 86400, 1'000'000'000, Most / 1000, Most};
        for (const double width : {1e-300, 0.001, 1.0, 600.0, 1e9, 1e300}) {
            for (const qlonglong range : numbers) {
                for (const qlonglong interval : numbers) {
                    for (const qlonglong time : {Least, -7000LL, ExampleMs, Most}) {
                        ruler.setSize(QSizeF(width, width));
                        ruler.setRangeSecs(range);
                        ruler.setNotchIntervalSecs(interval);
                        ruler.setTimeFromEpoch(time, utc());
                        QElapsedTimer one;
                        one.start();
                        painted(ruler, {8, 8});
                        QVERIFY2(one.elapsed() < 2000,
                                 qPrintable(u"%1 %2 %3 %4"_s.arg(width).arg(range).arg(interval).arg(time)));
                    }
                }
            }
        }
    }

    void paint_survivesSizesThatAreNone_data()
    {
        QTest::addColumn<double>("width");
        QTest::addColumn<double>("height");
        constexpr double infinity = std::numeric_limits<double>::infinity();
        constexpr double nan = std::numeric_limits<double>::quiet_NaN();
        QTest::newRow("zero") << 0.0 << 0.0;
        QTest::newRow("negative") << -5.0 << -5.0;
        QTest::newRow("infinite") << infinity << 40.0;
        QTest::newRow("infinitely negative") << -infinity << 40.0;
        QTest::newRow("infinitely high") << 600.0 << infinity;
        QTest::newRow("no number") << nan << nan;
    }

    void paint_survivesSizesThatAreNone()
    {
        QFETCH(double, width);
        QFETCH(double, height);
        QmlScrubBarRulerController ruler;
        setExample(ruler);
        ruler.setSize(QSizeF(width, height));
        QImage empty(Width, Height, QImage::Format_RGB32);
        empty.fill(Qt::white);
        QCOMPARE(painted(ruler), empty);
    }

    void paint_survivesAnInvalidTime()
    {
        QmlScrubBarRulerController ruler;
        ruler.setSize(QSizeF(Width, Height));
        ruler.setRangeSecs(60);
        ruler.setNotchIntervalSecs(10);
        // As at the epoch with the left edge there too: 0 - 300 - 100.
        QCOMPARE(notches(painted(ruler)), QList<int>({100, 200, 300, 400, 500}));
    }

    // Notches that no screen can tell apart become a bar, as dark as their opacity makes it or darker.
    void paint_drawsABar_whenNotchesAreDense()
    {
        QmlScrubBarRulerController ruler;
        setExample(ruler);
        ruler.setRangeSecs(1'000'000'000);
        ruler.setNotchIntervalSecs(1);
        QElapsedTimer clock;
        clock.start();
        const QImage image = painted(ruler);
        QVERIFY2(clock.elapsed() < 1000, qPrintable(QString::number(clock.elapsed())));
        for (int x = 0; x < Width; ++x)
            QVERIFY(qGray(image.pixel(x, Height / 2)) < 80);
    }

    void item_survivesSizesBeyondTheScreen()
    {
        QQuickWindow window;
        window.setColor(Qt::white);
        window.resize(Width, Height);
        auto *ruler = new CountingRuler(window.contentItem());
        setExample(*ruler);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        for (const QSizeF size : {QSizeF(5000, 40), QSizeF(40, 5000), QSizeF(1e5, 40), QSizeF(1e9, 40), QSizeF(1e9, 1e9), QSizeF(0, 0), QSizeF(1, 1)}) {
            ruler->setSize(size);
            ruler->addMsecs(1);
            QVERIFY(showFrame(window));
        }
        ruler->setSize(QSizeF(Width, Height));
        ruler->setTimeFromEpoch(ExampleMs, utc());
        checkExample(window.grabWindow(), 0);
    }

    void element_takesWhatQmlGives()
    {
        QQmlEngine engine;
        QQmlComponent component(&engine);
        component.setData(R"(
            import orrinsdkqml
            Ruler {
                width: 600; height: 40; rangeSecs: 60; notchIntervalSecs: 10
                function spoil(value: real) { rangeSecs = value; notchIntervalSecs = value; addMsecs(value) }
                function setTime(ms: real) { setTimeFromEpoch(ms, undefined) }
            })",
                          QUrl());
        const std::unique_ptr<QObject> object(component.create());
        auto *ruler = qobject_cast<QmlScrubBarRulerController *>(object.get());
        QVERIFY2(ruler, qPrintable(component.errorString()));
        QCOMPARE(ruler->rangeSecs(), 60);
        for (const double value : {0.0, -1.0, std::numeric_limits<double>::quiet_NaN(), 0.5, 1e300,
                                   std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()}) {
            QMetaObject::invokeMethod(ruler, "spoil", Q_ARG(double, value));
            painted(*ruler);
            QMetaObject::invokeMethod(ruler, "setTime", Q_ARG(double, value));
            painted(*ruler);
        }
        ruler->setRangeSecs(60);
        ruler->setNotchIntervalSecs(10);
        ruler->setTimeFromEpoch(ExampleMs, utc());
        checkExample(painted(*ruler), 0);
    }
};

QTEST_MAIN(tst_QmlScrubBarRulerController)
#include "tst_qmlscrubbarrulercontroller.moc"
