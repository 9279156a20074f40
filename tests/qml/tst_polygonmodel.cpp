// SPDX-License-Identifier: GPL-3.0-or-later
#include "polygonmodel.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

#include <limits>

/*! The reference model of the polygon editor: rows, the corner that closes the outline, the place of a new corner. */
class tst_PolygonModel : public QObject
{
    Q_OBJECT

private:
    static QList<QPointF> square() { return {{0, 0}, {10, 0}, {10, 10}, {0, 10}}; }
    static QPointF at(const PolygonModel &model, int row)
    {
        const QModelIndex index = model.index(row);
        return {index.data(PolygonModel::XRole).toDouble(), index.data(PolygonModel::YRole).toDouble()};
    }

private Q_SLOTS:
    void rows_areTheCorners_andTheFirstAgain()
    {
        PolygonModel model;
        const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        QCOMPARE(model.rowCount(), 0);
        QCOMPARE(model.startX(), 0.0);
        model.setCorners(square());
        QCOMPARE(model.rowCount(), 5);
        for (int row = 0; row < 5; ++row)
            QCOMPARE(at(model, row), square().at(row % 4));
        QVERIFY(!model.index(0).data(Qt::DisplayRole).isValid());
        QCOMPARE(model.rowCount(model.index(0)), 0);
    }

    void closingRow_meansTheFirstCorner()
    {
        PolygonModel model;
        const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        model.setCorners(square());
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        QSignalSpy start(&model, &PolygonModel::startChanged);
        model.moveVertex(4, 1, 2);
        QCOMPARE(at(model, 0), QPointF(1, 2));
        QCOMPARE(at(model, 4), QPointF(1, 2));
        QCOMPARE(model.startX(), 1.0);
        QCOMPARE(start.size(), 1);
        QCOMPARE(changed.size(), 2);
        model.moveVertex(2, 1, 1);
        QCOMPARE(changed.size(), 3);
        QCOMPARE(start.size(), 1);
        model.removePointAtIndex(4);
        QCOMPARE(model.corners(), QList<QPointF>({{10, 0}, {11, 11}, {0, 10}}));
        QCOMPARE(model.startX(), 10.0);
    }

    void newCorner_liesInTheNearestEdge_data()
    {
        QTest::addColumn<QPointF>("position");
        QTest::addColumn<int>("place");
        QTest::newRow("top") << QPointF(5, -1) << 1;
        QTest::newRow("right") << QPointF(11, 5) << 2;
        QTest::newRow("bottom, from inside") << QPointF(5, 9) << 3;
        QTest::newRow("closing edge") << QPointF(-3, 5) << 4;
    }
    void newCorner_liesInTheNearestEdge()
    {
        QFETCH(QPointF, position);
        QFETCH(int, place);
        PolygonModel model;
        const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        model.setCorners(square());
        QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
        model.addPoint(position);
        QCOMPARE(inserted.size(), 1);
        QCOMPARE(inserted.constFirst().at(1).toInt(), place);
        QCOMPARE(model.corners().at(place), position);
        QCOMPARE(model.rowCount(), 6);
    }

    void corners_growFromNothing()
    {
        PolygonModel model;
        const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        model.addPoint({1, 1});
        QCOMPARE(model.rowCount(), 2);
        model.addPoint({5, 1});
        model.addPoint({5, 1});
        QCOMPARE(model.corners().size(), 3);
        model.removePointAtIndex(0);
        QCOMPARE(model.corners().size(), 3);
    }

    void contains_countsCrossings_data()
    {
        QTest::addColumn<QPointF>("position");
        QTest::addColumn<bool>("inside");
        QTest::newRow("middle") << QPointF(5, 5) << true;
        QTest::newRow("beside") << QPointF(15, 5) << false;
        QTest::newRow("level with an edge") << QPointF(15, 10) << false;
        QTest::newRow("above") << QPointF(5, -1) << false;
        QTest::newRow("no number") << QPointF(std::numeric_limits<double>::quiet_NaN(), 5) << false;
    }
    void contains_countsCrossings()
    {
        QFETCH(QPointF, position);
        QFETCH(bool, inside);
        PolygonModel model;
        QVERIFY(!model.contains(position));
        model.setCorners(square());
        QCOMPARE(model.contains(position), inside);
        QSignalSpy changed(&model, &PolygonModel::shapeContainsCursorChanged);
        model.updateCursorPosition(position);
        QCOMPARE(model.shapeContainsCursor(), inside);
        QCOMPARE(changed.size(), inside ? 1 : 0);
    }

    void corners_areBounded_andNumbers()
    {
        PolygonModel model;
        QList<QPointF> many(PolygonModel::MaximumCorners + 5, QPointF(1, 1));
        many.prepend(QPointF(std::numeric_limits<double>::infinity(), 0));
        model.setCorners(many);
        QCOMPARE(model.corners().size(), PolygonModel::MaximumCorners);
        model.addPoint({2, 2});
        QCOMPARE(model.corners().size(), PolygonModel::MaximumCorners);
        model.printCorvanePoints(nullptr);
    }
};

QTEST_GUILESS_MAIN(tst_PolygonModel)
#include "tst_polygonmodel.moc"
