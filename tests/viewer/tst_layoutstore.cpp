// SPDX-License-Identifier: GPL-3.0-or-later
#include "tiles/layoutstore.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_LayoutStore : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(m_folder->isValid());
    }

    void store_isEmpty_atTheFirstStart()
    {
        const LayoutStore store(file(), nullptr);
        QCOMPARE(store.names(), QStringList());
        QCOMPARE(store.lastCameras(), QStringList());
        QCOMPARE(store.cycleSeconds(), 15);
        QVERIFY(!store.cycling());
        QCOMPARE(store.next({}), QString());
        QVERIFY(store.cameras(u"x"_s).isEmpty());
    }

    void layouts_areThereAgain_inTheirOrder()
    {
        {
            LayoutStore store(file(), nullptr);
            QSignalSpy names(&store, &LayoutStore::namesChanged);
            QVERIFY(store.save(u"  Gate  and\tyard "_s, {u"a"_s, QString(), u"b, with \"marks\""_s, u"c"_s}));
            QVERIFY(store.save(u"Alone"_s, {u"ä"_s}));
            QVERIFY(store.save(u"Blank"_s, {QString()}));
            QCOMPARE(names.size(), 3);
            QVERIFY(store.save(u"Alone"_s, {u"ö"_s}));
            QCOMPARE(names.size(), 3);
            QSignalSpy cycling(&store, &LayoutStore::cyclingChanged);
            store.setCycling(true);
            store.setCycling(true);
            QCOMPARE(cycling.size(), 1);
            store.setCycleSeconds(40);
            store.setLastCameras({u"a"_s, QString(), QString(), QString()});
        }
        const LayoutStore store(file(), nullptr);
        QCOMPARE(store.names(), (QStringList{u"Gate and yard"_s, u"Alone"_s, u"Blank"_s}));
        QCOMPARE(store.cameras(u"Gate and yard"_s), (QStringList{u"a"_s, QString(), u"b, with \"marks\""_s, u"c"_s}));
        QCOMPARE(store.cameras(u"Alone"_s), QStringList{u"ö"_s});
        QCOMPARE(store.cameras(u"Blank"_s), QStringList{QString()});
        QCOMPARE(store.cycleSeconds(), 40);
        QVERIFY(store.cycling());
        QCOMPARE(store.lastCameras(), (QStringList{u"a"_s, QString(), QString(), QString()}));
    }

    void next_goesRound()
    {
        LayoutStore store(file(), nullptr);
        for (const QString &name : {u"a"_s, u"b"_s, u"c"_s})
            QVERIFY(store.save(name, {u"x"_s}));
        QCOMPARE(store.next(u"a"_s), u"b"_s);
        QCOMPARE(store.next(u"c"_s), u"a"_s);
        QCOMPARE(store.next(u"unknown"_s), u"a"_s);
    }

    void save_refuses_whatIsNoLayout()
    {
        LayoutStore store(file(), nullptr);
        QVERIFY(!store.save(u"  "_s, {u"x"_s}));
        QVERIFY(!store.save(u"a"_s, {}));
        QVERIFY(!store.save(u"a"_s, QStringList(LayoutStore::MaxCameras + 1, u"x"_s)));
        QVERIFY(store.save(u"a"_s, QStringList(LayoutStore::MaxCameras, u"x"_s)));
        QVERIFY(store.save(QString(200, u'n'), {u"x"_s}));
        QCOMPARE(store.names().constLast().size(), LayoutStore::MaxNameLength);
        for (int i = 2; i < LayoutStore::MaxLayouts; ++i)
            QVERIFY(store.save(QString::number(i), {u"x"_s}));
        QVERIFY(!store.save(u"one too many"_s, {u"x"_s}));
        QVERIFY(store.save(u"a"_s, {u"y"_s}));
        QCOMPARE(store.names().size(), LayoutStore::MaxLayouts);
    }

    void renameAndRemove_keepTheOthers()
    {
        LayoutStore store(file(), nullptr);
        for (const QString &name : {u"a"_s, u"b"_s, u"c"_s})
            QVERIFY(store.save(name, {name}));
        QVERIFY(store.rename(u"b"_s, u" B "_s));
        QVERIFY(!store.rename(u"B"_s, u"a"_s));
        QVERIFY(!store.rename(u"B"_s, QString()));
        QVERIFY(!store.rename(u"gone"_s, u"d"_s));
        QCOMPARE(store.cameras(u"B"_s), QStringList{u"b"_s});
        store.remove(u"a"_s);
        store.remove(u"a"_s);
        QCOMPARE(store.names(), (QStringList{u"B"_s, u"c"_s}));
        QCOMPARE(LayoutStore(file(), nullptr).names(), (QStringList{u"B"_s, u"c"_s}));
    }

    void cycle_staysInItsRange()
    {
        LayoutStore store(file(), nullptr);
        QSignalSpy changed(&store, &LayoutStore::cycleSecondsChanged);
        store.setCycleSeconds(0);
        QCOMPARE(store.cycleSeconds(), LayoutStore::ShortestCycle);
        store.setCycleSeconds(100000);
        QCOMPARE(store.cycleSeconds(), LayoutStore::LongestCycle);
        store.setCycleSeconds(LayoutStore::LongestCycle + 1);
        QCOMPARE(changed.size(), 2);
    }

    void wrongEntries_areLeftOut()
    {
        QFile ini(file());
        QVERIFY(ini.open(QIODevice::WriteOnly));
        ini.write("[General]\ncycleSeconds=none\nlastCameras=@Invalid()\n[layouts]\nsize=2000000000\n"
                  "1\\name=\n1\\cameras=a\n2\\name=good\n2\\cameras=a, b\n3\\name=good\n3\\cameras=c\n4\\name=bare\n");
        ini.close();
        const LayoutStore store(file(), nullptr);
        QCOMPARE(store.names(), QStringList{u"good"_s});
        QCOMPARE(store.cameras(u"good"_s), (QStringList{u"a"_s, u"b"_s}));
        QCOMPARE(store.cycleSeconds(), LayoutStore::ShortestCycle);
        QCOMPARE(store.lastCameras(), QStringList());
    }

private:
    QString file() const { return m_folder->filePath(u"layouts.ini"_s); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

QTEST_GUILESS_MAIN(tst_LayoutStore)
#include "tst_layoutstore.moc"
