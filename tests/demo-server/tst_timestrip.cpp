// SPDX-License-Identifier: GPL-3.0-or-later
#include "camera/framegrid.h"
#include "timestrip.h"

#include <QImage>
#include <QRandomGenerator>
#include <QTest>

using namespace orrin;

namespace {

struct Plane
{
    int width;
    int height;
    std::vector<std::uint8_t> luma = std::vector<std::uint8_t>(std::size_t(width) * std::size_t(height), 90);
};

const timestrip::Fields Example{1794000000067, 206, 17, 201, 255};

Plane drawn(int width, int height)
{
    Plane plane{width, height};
    timestrip::draw(plane.luma.data(), width, width, height, Example);
    return plane;
}

} // namespace

class TestTimeStrip : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void read_givesWhatWasDrawn_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("height");
        QTest::newRow("sub") << 640 << 360;
        QTest::newRow("main") << 1280 << 720;
        QTest::newRow("odd size") << 1366 << 768;
        QTest::newRow("square") << 400 << 400;
        QTest::newRow("smallest") << 48 << 27;
    }

    void read_givesWhatWasDrawn()
    {
        QFETCH(int, width);
        QFETCH(int, height);
        const Plane plane = drawn(width, height);
        const auto fields = timestrip::read(plane.luma.data(), width, width, height);
        QVERIFY(fields);
        QVERIFY(*fields == Example);
    }

    void read_givesWhatWasDrawn_whenScaledToAScreenshot()
    {
        const Plane plane = drawn(1280, 720);
        const QImage original(plane.luma.data(), 1280, 720, 1280, QImage::Format_Grayscale8);
        for (const QSize size : {QSize(533, 300), QSize(1920, 1080), QSize(811, 456), QSize(320, 180)}) {
            const QImage shot = original.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
            const auto luma = [&shot](double x, double y) {
                return qGray(shot.pixel(qMin(shot.width() - 1, int(x * shot.width())),
                                        qMin(shot.height() - 1, int(y * shot.height()))));
            };
            const auto fields = timestrip::read(luma, 1280.0 / 720.0);
            QVERIFY2(fields, qPrintable(QStringLiteral("%1 pixels wide").arg(size.width())));
            QVERIFY(*fields == Example);
        }
    }

    void read_givesWhatWasDrawn_whenNoisy()
    {
        Plane plane = drawn(640, 360);
        QRandomGenerator random(7);
        for (std::uint8_t &value : plane.luma)
            value = std::uint8_t(qBound(0, int(value) + random.bounded(-60, 61), 255));
        const auto fields = timestrip::read(plane.luma.data(), 640, 640, 360);
        QVERIFY(fields);
        QVERIFY(*fields == Example);
    }

    void read_givesNothing_whenAnyCellIsWrong()
    {
        for (int cell = 0; cell < timestrip::Columns * timestrip::Rows; ++cell) {
            timestrip::Bits bits = timestrip::encode(Example);
            bits[std::size_t(cell)] = !bits[std::size_t(cell)];
            QVERIFY2(!timestrip::decode(bits), qPrintable(QString::number(cell)));
        }
    }

    void read_givesNothing_whenThereIsNoStrip()
    {
        for (const int level : {0, 16, 90, 128, 235, 255}) {
            const std::vector<std::uint8_t> luma(640 * 360, std::uint8_t(level));
            QVERIFY(!timestrip::read(luma.data(), 640, 640, 360));
        }
        QVERIFY(!timestrip::read(nullptr, 0, 0, 0));
    }

    void draw_touchesNothingElse()
    {
        const Plane plane = drawn(1366, 768);
        const int height = timestrip::stripHeight(1366);
        for (int y = 0; y < 768; ++y) {
            for (int x = y < height ? 1366 / 2 : 0; x < 1366; ++x)
                QCOMPARE(plane.luma[std::size_t(y) * 1366 + std::size_t(x)], std::uint8_t(90));
        }
        std::vector<std::uint8_t> tiny(40 * 10, 90);
        timestrip::draw(tiny.data(), 40, 40, 10, Example);
        QVERIFY(std::ranges::all_of(tiny, [](std::uint8_t value) { return value == 90; }));
    }

    void frameGrid_numberAndTimeDetermineEachOther()
    {
        using namespace demo::framegrid;
        for (std::int64_t number = 26910000000; number < 26910000100; ++number) {
            const std::int64_t time = timeOf(number, 15);
            QCOMPARE(frameAt(time, 15), number);
            QCOMPARE(frameAt(time - 1, 15), number - 1);
            QCOMPARE(frameAt(timeOf(number, 25), 25), number);
        }
    }
};

QTEST_APPLESS_MAIN(TestTimeStrip)
#include "tst_timestrip.moc"
