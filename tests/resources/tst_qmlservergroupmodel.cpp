// SPDX-License-Identifier: GPL-3.0-or-later
#include "modelchecks.h"
#include "signalorder.h"
#include "testsite.h"

#include "resources/qmlservergroup.h"
#include "resources/qmlservergroupmodel.h"

#include <contract/core/connectionmanager.h>
#include <contract/core/loginerror.h>
#include <contract/core/server.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <limits>
#include <optional>

using namespace Qt::StringLiterals;

namespace orrin {

namespace {

// The model leaves its items to nobody.
void deleteItems(const QmlServerGroupModel &model)
{
    for (int row = 0; row < model.count(); ++row)
        delete model.get(row).value<QmlServerGroup *>();
}

} // namespace

class TestQmlServerGroupModel : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void model_isEmpty_withoutRootObject()
    {
        const QmlServerGroupModel model;
        QCOMPARE(model.count(), 0);
        QCOMPARE(model.rowCount(), 0);
        QVERIFY(!model.get(0).isValid());
        QVERIFY(!model.data(model.index(0, 0), 256).isValid());
    }

    void table_followsTheRules()
    {
        TestSite site;
        QVERIFY(site.login(describeServer(1, 1)));
        const QmlServerGroupModel model;
        checkTable(model, {"serverGroupId", "hosts"}, {u"Server Group ID"_s, u"Hosts"_s}, u"Invalid column: %1"_s);
        deleteItems(model);
    }

    void rows_areGroups()
    {
        TestSite site;
        QVERIFY(site.login(describeServer(1, 1, u"north"_s)));
        QVERIFY(site.login(describeServer(2, 2, u"north"_s)));
        QVERIFY(site.login(describeServer(3, 1, u"south"_s)));
        QmlServerGroupModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        QCOMPARE(model.count(), 2);
        QCOMPARE(model.data(model.index(0, 0), 256), 1);
        QCOMPARE(model.data(model.index(0, 0), 257), u"server1:8601, server2:8601"_s);
        QCOMPARE(model.data(model.index(1, 1)), u"server3:8601"_s);
        QCOMPARE(model.get(1).value<QmlServerGroup *>()->serverGroupId(), 2);
        QCOMPARE(model.get(1).metaType(), QMetaType::fromType<QmlServerGroup *>());
        for (const int row : {-1, 2, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
            QVERIFY(!model.get(row).isValid());
        deleteItems(model);
    }

    void get_isInvalid_whenTheItemHasGone()
    {
        TestSite site;
        QVERIFY(site.login(describeServer(1, 1)));
        const QmlServerGroupModel model;
        delete model.get(0).value<QmlServerGroup *>();
        QCOMPARE(model.count(), 1);
        QVERIFY(!model.get(0).isValid());
        QVERIFY(!model.data(model.index(0, 0), 256).isValid());
    }

    void managerSignal_resets_data()
    {
        using Emit = std::function<void(ConnectionManager &)>;
        QTest::addColumn<Emit>("emitSignal");
        QTest::addColumn<int>("resets");
        QTest::newRow("loginError") << Emit([](auto &m) { Q_EMIT m.loginError(LoginError()); }) << 1;
        QTest::newRow("userConnectionTimedOut") << Emit([](auto &m) { Q_EMIT m.userConnectionTimedOut(1, 1); }) << 1;
        QTest::newRow("initialConnectionComplete") << Emit([](auto &m) { Q_EMIT m.initialConnectionComplete(); }) << 1;
        QTest::newRow("serverConnected") << Emit([](auto &m) { Q_EMIT m.serverConnected(nullptr); }) << 1;
        QTest::newRow("serverReconnected") << Emit([](auto &m) { Q_EMIT m.serverReconnected(nullptr); }) << 1;
        QTest::newRow("serverOffline") << Emit([](auto &m) { Q_EMIT m.serverOffline(nullptr); }) << 0;
        QTest::newRow("allServersDisconnected") << Emit([](auto &m) { Q_EMIT m.allServersDisconnected(0); }) << 0;
    }
    void managerSignal_resets()
    {
        QFETCH(std::function<void(ConnectionManager &)>, emitSignal);
        TestSite site;
        const QmlServerGroupModel model;
        QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
        emitSignal(site.manager());
        QTEST(static_cast<int>(resets.size()), "resets");
    }

    void managerGoes_resets()
    {
        std::optional<TestSite> site(std::in_place);
        QVERIFY(site->login(describeServer(1, 1)));
        const QmlServerGroupModel model;
        QCOMPARE(model.count(), 1);
        site.reset();
        QCOMPARE(model.count(), 0);
        QVERIFY(!model.get(0).isValid());
    }

    void items_survive_whenTheirGroupStays()
    {
        TestSite site;
        QVERIFY(site.login(describeServer(1, 1)));
        QmlServerGroupModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        QPointer<QmlServerGroup> first = model.get(0).value<QmlServerGroup *>();
        QVERIFY(!first->parent());
        QVERIFY(site.login(describeServer(2, 1)));
        QCOMPARE(model.count(), 2);
        QCOMPARE(model.get(0).value<QmlServerGroup *>(), first.data());
        QPointer<QmlServerGroup> second = model.get(1).value<QmlServerGroup *>();
        site.logOut();
        QCOMPARE(model.count(), 0);
        QVERIFY(!first);
        QVERIFY(!second);
    }

    // Each refresh listens to the end of each group once more.
    void groupGoes_resetsOnceForEachRefreshBefore()
    {
        TestSite site;
        QVERIFY(site.login(describeServer(1, 1)));
        const QmlServerGroupModel model;
        Q_EMIT site.manager().initialConnectionComplete();
        Q_EMIT site.manager().initialConnectionComplete();
        QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
        site.logOut();
        QCOMPARE(resets.size(), 3);
    }

    void groupGoes_resetsABoundedNumberOfTimes_afterManyRefreshes()
    {
        TestSite site;
        const QmlServerGroupModel model;
        for (quint64 uid = 1; uid <= 12; ++uid)
            QVERIFY(site.login(describeServer(uid, 1)));
        QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
        site.logOut();
        QVERIFY(resets.size() >= 12);
        QVERIFY(resets.size() <= 12 * 16);
        QCOMPARE(model.count(), 0);
    }

    void countChanged_isNeverEmitted()
    {
        TestSite site;
        const QmlServerGroupModel model;
        QSignalSpy changes(&model, &QmlServerGroupModel::countChanged);
        QVERIFY(site.login(describeServer(1, 1)));
        QCOMPARE(model.count(), 1);
        site.logOut();
        QCOMPARE(changes.size(), 0);
    }

    void items_stayAlive_whenTheModelGoes()
    {
        TestSite site;
        QVERIFY(site.login(describeServer(1, 1)));
        auto *model = new QmlServerGroupModel;
        const QPointer<QmlServerGroup> item = model->get(0).value<QmlServerGroup *>();
        delete model;
        QVERIFY(item);
        QCOMPARE(item->hosts(), u"server1:8601"_s);
        delete item;
    }

    void refresh_isConsistent_whenAReceiverRefreshesOrDeletes()
    {
        TestSite site;
        QVERIFY(site.login(describeServer(1, 1)));
        auto *model = new QmlServerGroupModel;
        const QPointer<QmlServerGroupModel> alive = model;
        int nested = 0;
        connect(model, &QAbstractItemModel::modelAboutToBeReset, this, [&] {
            if (++nested == 1)
                Q_EMIT site.manager().initialConnectionComplete();
        });
        Q_EMIT site.manager().initialConnectionComplete();
        QCOMPARE(nested, 2);
        QCOMPARE(model->count(), 1);
        deleteItems(*model);
        connect(model, &QAbstractItemModel::modelAboutToBeReset, this, [model] { delete model; });
        Q_EMIT site.manager().initialConnectionComplete();
        QVERIFY(!alive);
    }

    void signals_areDeclaredInOrder()
    {
        QCOMPARE(SignalOrder::declaredBy(QmlServerGroupModel::staticMetaObject), QStringList{u"countChanged"_s});
    }
};

} // namespace orrin

QTEST_GUILESS_MAIN(orrin::TestQmlServerGroupModel)
#include "tst_qmlservergroupmodel.moc"
