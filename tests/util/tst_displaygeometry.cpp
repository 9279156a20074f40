// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/util/displaygeometry.h>

#include <QTest>

#include <cmath>
#include <limits>

using namespace orrin;

class TestDisplayGeometry : public QObject
{
    Q_OBJECT

private:
    static DisplayGeometry geometry(QSizeF container, QSizeF image)
    {
        DisplayGeometry geometry;
        geometry.setContainerSize(container);
        geometry.setImageSize(image);
        return geometry;
    }

private Q_SLOTS:
    void zoomRect_isNull_untilBothSizesAreKnown()
    {
        DisplayGeometry geometry;
        QVERIFY(geometry.zoomRect().isNull());
        geometry.setContainerSize({100, 100});
        QVERIFY(geometry.zoomRect().isNull());
        geometry.setImageSize({10, 0});
        QVERIFY(geometry.zoomRect().isNull());
        geometry.setImageSize({std::numeric_limits<double>::quiet_NaN(), 5});
        QVERIFY(geometry.zoomRect().isNull());
        geometry.setImageSize({10, 5});
        QCOMPARE(geometry.zoomRect(), QRectF(0, 25, 100, 50));
    }

    void zoomRect_fitsOrStretches()
    {
        DisplayGeometry wide = geometry({200, 100}, {100, 100});
        QCOMPARE(wide.zoomRect(), QRectF(50, 0, 100, 100));
        wide.setPreserveAspectRatio(false);
        QCOMPARE(wide.zoomRect(), QRectF(0, 0, 200, 100));
        QVERIFY(!wide.preserveAspectRatio());
    }

    void zoom_keepsThePoint()
    {
        DisplayGeometry square = geometry({100, 100}, {100, 100});
        square.zoom(2.0, 0.0, 0.0);
        QCOMPARE(square.zoomRect(), QRectF(-50, -50, 200, 200));
        square.resetZoom();
        square.zoom(2.0, -1.0, -1.0);
        QCOMPARE(square.zoomRect(), QRectF(0, 0, 200, 200));
        square.resetZoom();
        square.zoom(4.0, 1.0, 0.5);
        QCOMPARE(square.zoomRect().right(), 100.0);
        // Three quarters down: 75 of 100 before, 300 of 400 after.
        QCOMPARE(square.zoomRect().top() + 300.0, 75.0);
    }

    void zoom_staysInItsLimits()
    {
        DisplayGeometry square = geometry({100, 100}, {100, 100});
        square.zoom(0.1, 0, 0);
        QCOMPARE(square.zoomFactor(), 1.0);
        square.zoom(1e9, 0, 0);
        QCOMPARE(square.zoomFactor(), DisplayGeometry::MaximumZoom);
        const QRectF before = square.zoomRect();
        for (const double factor : {0.0, -1.0, std::nan(""), std::numeric_limits<double>::infinity()})
            square.zoom(factor, 0, 0);
        square.zoom(2.0, std::nan(""), 0);
        QCOMPARE(square.zoomRect(), before);
    }

    void zoomOut_bringsTheImageBackIntoView()
    {
        DisplayGeometry square = geometry({100, 100}, {100, 100});
        square.zoom(4.0, 1.0, 1.0);
        square.zoom(0.25, -1.0, -1.0);
        QCOMPARE(square.zoomRect(), QRectF(0, 0, 100, 100));
    }

    void offset_leavesNoGap()
    {
        DisplayGeometry wide = geometry({200, 100}, {100, 100});
        wide.addOffsetPixels(30, 30);
        QCOMPARE(wide.zoomRect(), QRectF(50, 0, 100, 100));
        wide.zoom(4.0, 0, 0);
        wide.addOffsetPixels(10, -20);
        QCOMPARE(wide.zoomRect(), QRectF(-90, -170, 400, 400));
        wide.addOffsetPixels(1e6, 1e6);
        QCOMPARE(wide.zoomRect().topLeft(), QPointF(0, 0));
        wide.addOffsetPixels(std::nan(""), 0);
        QCOMPARE(wide.zoomRect().topLeft(), QPointF(0, 0));
        wide.resetZoomOffset();
        QCOMPARE(wide.zoomFactor(), 4.0);
        QCOMPARE(wide.zoomRect(), QRectF(-100, -150, 400, 400));
    }

    void resize_keepsTheMiddle()
    {
        DisplayGeometry square = geometry({100, 100}, {100, 100});
        square.zoom(2.0, 0.5, 0.0);
        const double fraction = square.zoomRect().left() / 100.0;
        square.setContainerSize({300, 300});
        QCOMPARE(square.zoomRect().left() / 300.0, fraction);
    }

    void ndcRect_mapsCorners()
    {
        const NDCRect whole = zoomRectToNdcRect({0, 0, 640, 360}, {640, 360});
        QCOMPARE(whole.x1, -1.0);
        QCOMPARE(whole.y1, 1.0);
        QCOMPARE(whole.x2, 1.0);
        QCOMPARE(whole.y2, -1.0);
        const NDCRect quarter = zoomRectToNdcRect({0, 0, 320, 90}, {640, 360});
        QCOMPARE(quarter.x2, 0.0);
        QCOMPARE(quarter.y2, 0.5);
        const NDCRect none = zoomRectToNdcRect({0, 0, 10, 10}, {0, 10});
        QVERIFY(none.x1 == 0.0 && none.y1 == 0.0 && none.x2 == 0.0 && none.y2 == 0.0);
    }
};

QTEST_GUILESS_MAIN(TestDisplayGeometry)
#include "tst_displaygeometry.moc"
