// SPDX-License-Identifier: GPL-3.0-or-later
#include "camera/camerapainter.h"
#include "timestrip.h"

#include <QTest>

using namespace orrin;
using namespace orrin::demo;

namespace {

constexpr qint64 Moment = 1794000000400;

/*! How many luma samples differ outside the strip. */
int differences(const Picture &a, const Picture &b, int fromLine, int toLine)
{
    int count = 0;
    for (int y = fromLine; y < toLine; ++y) {
        for (int x = 0; x < a.width(); ++x)
            count += a.plane(0)[y * a.stride(0) + x] != b.plane(0)[y * b.stride(0) + x];
    }
    return count;
}

} // namespace

class TestCameraPainter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void paint_isAFunctionOfTime()
    {
        const Site site = Site::builtIn();
        for (const RecorderInfo &recorder : site.recorders) {
            for (const Camera &camera : recorder.cameras) {
                CameraPainter first(camera, recorder.timeZone, QSize(640, 360), Picture::Range::Limited);
                const Picture picture = first.paint(Moment, View());
                first.paint(Moment + 123456, View{0.5, 0.2, 0.3});
                CameraPainter second(camera, recorder.timeZone, QSize(640, 360), Picture::Range::Limited);
                QVERIFY2(first.paint(Moment, View()) == picture, qPrintable(camera.name));
                QVERIFY2(second.paint(Moment, View()) == picture, qPrintable(camera.name));
            }
        }
    }

    void paint_showsTimeAndCameraAndView()
    {
        const Site site = Site::builtIn();
        const RecorderInfo &north = site.recorders.first();
        for (const QSize size : {QSize(640, 360), QSize(1280, 720), QSize(1366, 768)}) {
            CameraPainter painter(*north.camera(2), north.timeZone, size, Picture::Range::Limited);
            const Picture &picture = painter.paint(Moment, View{-1.0, 1.0, 0.5});
            const auto fields =
                timestrip::read(picture.plane(0), picture.stride(0), size.width(), size.height());
            QVERIFY(fields);
            QCOMPARE(qint64(fields->timeMs), Moment);
            QCOMPARE(int(fields->camera), 102);
            QCOMPARE(int(fields->pan), 0);
            QCOMPARE(int(fields->tilt), 255);
            QCOMPARE(int(fields->zoom), 128);
        }
    }

    void paint_moves_asTimePasses()
    {
        const Site site = Site::builtIn();
        for (const RecorderInfo &recorder : site.recorders) {
            for (const Camera &camera : recorder.cameras) {
                CameraPainter painter(camera, recorder.timeZone, QSize(640, 360), Picture::Range::Limited);
                const Picture before = painter.paint(Moment, View());
                int moved = 0;
                // Some scenes rest for a while, none of them for a minute.
                for (int second = 1; second <= 60 && moved == 0; ++second)
                    moved = differences(before, painter.paint(Moment + second * 1000, View()), 60, 320);
                QVERIFY2(moved > 50, qPrintable(camera.name));
            }
        }
    }

    void paint_showsAnotherView_whenPtzMoves()
    {
        const Site site = Site::builtIn();
        const Camera &camera = *site.recorders.first().camera(2);
        CameraPainter painter(camera, "UTC", QSize(640, 360), Picture::Range::Limited);
        const Picture home = painter.paint(Moment, View());
        const Picture right = painter.paint(Moment, View{1.0, 0.0, 0.0});
        QVERIFY(differences(home, right, 60, 320) > 10000);
        QVERIFY(differences(right, painter.paint(Moment, View{1.0, 0.0, 1.0}), 60, 320) > 10000);
    }

    void paint_differsFromCameraToCamera()
    {
        const Site site = Site::builtIn();
        QList<Picture> pictures;
        for (const RecorderInfo &recorder : site.recorders) {
            for (const Camera &camera : recorder.cameras) {
                CameraPainter painter(camera, recorder.timeZone, QSize(640, 360), Picture::Range::Limited);
                pictures.append(painter.paint(Moment, View()));
            }
        }
        QCOMPARE(pictures.size(), 12);
        for (qsizetype i = 0; i < pictures.size(); ++i) {
            for (qsizetype j = 0; j < i; ++j)
                QVERIFY2(differences(pictures[i], pictures[j], 60, 320) > 5000,
                         qPrintable(QStringLiteral("%1 %2").arg(i).arg(j)));
        }
    }

    void paint_writesTheLocalTime()
    {
        // The same camera in two zones differs in the bar at the bottom alone.
        const Site site = Site::builtIn();
        const Camera &camera = *site.recorders.first().camera(1);
        CameraPainter berlin(camera, "Europe/Berlin", QSize(640, 360), Picture::Range::Limited);
        CameraPainter newYork(camera, "America/New_York", QSize(640, 360), Picture::Range::Limited);
        const Picture a = berlin.paint(Moment, View());
        const Picture &b = newYork.paint(Moment, View());
        QCOMPARE(differences(a, b, 0, 330), 0);
        QVERIFY(differences(a, b, 330, 360) > 20);
    }
};

QTEST_MAIN(TestCameraPainter)
#include "tst_camerapainter.moc"
