// SPDX-License-Identifier: GPL-3.0-or-later
#include "resources/itempool_p.h"

#include <QObject>
#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;

namespace orrin {

namespace {

class Item : public QObject
{
public:
    explicit Item(int id, QObject *parent = nullptr) : QObject(parent), id(id) {}
    int id;
};

using Pool = ItemPool<Item, 1>;

ResourceIds<1> idsOf(const Item &item)
{
    return {{item.id}};
}

QList<QPointer<Item>> makeItems(QObject *parent, const QList<int> &ids)
{
    QList<QPointer<Item>> items;
    for (const int id : ids)
        items.append(new Item(id, parent));
    return items;
}

std::vector<ResourceIds<1>> rowsOf(const QList<int> &ids)
{
    std::vector<ResourceIds<1>> rows;
    for (const int id : ids)
        rows.push_back({{id}});
    return rows;
}

} // namespace

class TestItemPool : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void take_findsEachItem_inAnyOrder_data()
    {
        QTest::addColumn<QList<int>>("order");
        QTest::newRow("same") << QList<int>{1, 2, 3, 4, 5};
        QTest::newRow("backwards") << QList<int>{5, 4, 3, 2, 1};
        QTest::newRow("mixed") << QList<int>{3, 4, 1, 5, 2};
        QTest::newRow("inserted and removed") << QList<int>{1, 9, 3, 4, 8};
    }
    void take_findsEachItem_inAnyOrder()
    {
        QFETCH(QList<int>, order);
        QObject parent;
        const QList<QPointer<Item>> items = makeItems(&parent, {1, 2, 3, 4, 5});
        Pool pool(items, &idsOf);
        const QList<QPointer<Item>> taken = pool.take(rowsOf(order));
        QCOMPARE(taken.size(), order.size());
        for (qsizetype row = 0; row < order.size(); ++row)
            QCOMPARE(taken[row].data(), order[row] <= 5 ? items[order[row] - 1].data() : nullptr);
        pool.deleteRest();
        for (const QPointer<Item> &item : items)
            QCOMPARE(item != nullptr, item && order.contains(item->id));
        QCOMPARE(parent.children().size(), std::count_if(order.begin(), order.end(), [](int id) { return id <= 5; }));
    }

    void take_givesEachItemOnce_whenIdsRepeat()
    {
        QObject parent;
        const QList<QPointer<Item>> items = makeItems(&parent, {7, 1, 7, 7});
        Pool pool(items, &idsOf);
        const QList<QPointer<Item>> taken = pool.take(rowsOf({1, 7, 7, 7, 7, 1}));
        QCOMPARE(taken[0], items[1]);
        QCOMPARE((QSet<Item *>{taken[1], taken[2], taken[3], taken[4]}), (QSet<Item *>{items[0], items[2], items[3], nullptr}));
        QVERIFY(!taken[5]);
        pool.deleteRest();
        QCOMPARE(parent.children().size(), 4);
    }

    void take_isQuick_whenAllIdsAreTheSame()
    {
        QObject parent;
        const QList<QPointer<Item>> items = makeItems(&parent, QList<int>(100'000, 7));
        Pool pool(items, &idsOf);
        QList<int> rows(100'000, 7);
        rows.prepend(9);
        const QList<QPointer<Item>> taken = pool.take(rowsOf(rows));
        QVERIFY(!taken[0]);
        QCOMPARE(QSet<Item *>(taken.begin() + 1, taken.end()).size(), 100'000);
    }

    void take_passesByItemsThatHaveGone()
    {
        QObject parent;
        QList<QPointer<Item>> items = makeItems(&parent, {1, 2, 3});
        delete items[1];
        Pool pool(items, &idsOf);
        const QList<QPointer<Item>> taken = pool.take(rowsOf({1, 2, 3}));
        QCOMPARE(taken[0], items[0]);
        QVERIFY(!taken[1]);
        QCOMPARE(taken[2], items[2]);
    }

    void deleteRest_isSafe_whenAnItemsEndEndsOthers()
    {
        auto *parent = new QObject;
        const QPointer<QObject> alive = parent;
        const QList<QPointer<Item>> items = makeItems(parent, {1, 2, 3});
        connect(items[0], &QObject::destroyed, this, [alive] { delete alive.data(); });
        Pool pool(items, &idsOf);
        pool.deleteRest();
        QVERIFY(!alive);
        QVERIFY(!items[2]);
    }
};

} // namespace orrin

QTEST_GUILESS_MAIN(orrin::TestItemPool)
#include "tst_itempool.moc"
