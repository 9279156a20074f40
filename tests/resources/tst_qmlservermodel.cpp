// SPDX-License-Identifier: GPL-3.0-or-later
#include "modelchecks.h"
#include "signalorder.h"
#include "testsite.h"

#include "resources/qmlserver.h"
#include "resources/qmlservermodel.h"

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
void deleteItems(const QmlServerModel &model)
{
    for (int row = 0; row < model.count(); ++row)
        delete model.get(row).value<QmlServer *>();
}

QStringList names(const QmlServerModel &model)
{
    QStringList names;
    for (int row = 0; row < model.rowCount(); ++row)
        names.append(model.data(model.index(row, 0), 259).toString());
    return names;
}

} // namespace

class TestQmlServerModel : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void model_isEmpty_withoutRootObject()
    {
        QmlServerModel model;
        QCOMPARE(model.count(), 0);
        QCOMPARE(model.serverGroupId(), -1);
        QVERIFY(!model.get(0).isValid());
        model.setServerGroupId(5);
        QCOMPARE(model.rowCount(), 0);
    }

    void table_followsTheRules()
    {
        TestSite site;
        QVERIFY(site.login(describeServer(1, 1)));
        const QmlServerModel model;
        checkTable(model,
                   {"serverGroupId", "serverId", "uniqueId", "name", "ip", "host", "cameraCount", "version",
                    "majorVersion", "minorVersion", "buildVersion", "userId", "userName", "userLevel"},
                   {u"Server Group ID"_s, u"Server ID"_s, u"Server Unique ID"_s, u"Name"_s, u"IP"_s, u"Host"_s,
                    u"Camera count"_s, u"Version"_s, u"Major version"_s, u"Minor version"_s, u"Buid version"_s,
                    u"User ID"_s, u"Username"_s, u"User level"_s},
                   u"Invalid role: %1"_s);
        QCOMPARE(model.data(model.index(0, 0), 256 + 14), u"Invalid role: 14"_s);
        QCOMPARE(model.headerData(14, Qt::Horizontal), u"Invalid column: 14"_s);
        deleteItems(model);
    }

    void columns_areProperties()
    {
        TestSite site;
        SiteDescription description = describeServer(7, 2);
        description.channels = {describeCamera(1), describeCamera(2)};
        QVERIFY(site.login(description));
        QmlServerModel model;
        const QmlServer *item = model.get(0).value<QmlServer *>();
        QVERIFY(item);
        for (int column = 0; column < model.columnCount(); ++column) {
            const QByteArray role = model.roleNames().value(256 + column);
            QCOMPARE(model.data(model.index(0, column)), item->property(role.constData()));
        }
        QCOMPARE(model.data(model.index(0, 6)), 2);
        deleteItems(model);
    }

    void rows_areServers_groupByGroup()
    {
        TestSite site;
        QVERIFY(site.login(describeServer(1, 2, u"north"_s)));
        QVERIFY(site.login(describeServer(3, 1, u"south"_s)));
        QVERIFY(site.login(describeServer(2, 1, u"north"_s)));
        QmlServerModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        QCOMPARE(names(model), (QStringList{u"Recorder 2"_s, u"Recorder 1"_s, u"Recorder 3"_s}));
        QCOMPARE(model.get(0).metaType(), QMetaType::fromType<QmlServer *>());
        for (const int row : {-1, 3, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
            QVERIFY(!model.get(row).isValid());
        deleteItems(model);
    }

    void setServerGroupId_filters_thenEmits()
    {
        TestSite site;
        QVERIFY(site.login(describeServer(1, 1, u"north"_s)));
        QVERIFY(site.login(describeServer(2, 1, u"south"_s)));
        QmlServerModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        const QPointer<QmlServer> north = model.get(0).value<QmlServer *>();
        const QPointer<QmlServer> south = model.get(1).value<QmlServer *>();
        QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
        int changes = 0;
        connect(&model, &QmlServerModel::serverGroupIdChanged, this, [&] {
            ++changes;
            QCOMPARE(resets.size(), changes);
        });
        model.setServerGroupId(2);
        QCOMPARE(changes, 1);
        QCOMPARE(names(model), QStringList{u"Recorder 2"_s});
        QCOMPARE(model.get(0).value<QmlServer *>(), south.data());
        QVERIFY(!north);
        model.setServerGroupId(2);
        QCOMPARE(changes, 1);
        QCOMPARE(resets.size(), 1);
        model.setServerGroupId(7);
        QCOMPARE(model.count(), 0);
        model.setServerGroupId(0);
        QCOMPARE(model.count(), 0);
        // Below 0 the filter is off.
        model.setServerGroupId(-2);
        QCOMPARE(model.count(), 2);
        deleteItems(model);
    }

    void setServerGroupId_isSafe_whenAReceiverDeletesTheModel()
    {
        TestSite site;
        auto *model = new QmlServerModel;
        const QPointer<QmlServerModel> alive = model;
        connect(model, &QAbstractItemModel::modelReset, this, [model] { delete model; });
        model->setServerGroupId(2);
        QVERIFY(!alive);
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
        const QmlServerModel model;
        QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
        emitSignal(site.manager());
        QTEST(static_cast<int>(resets.size()), "resets");
    }

    void managerGoes_resets()
    {
        std::optional<TestSite> site(std::in_place);
        QVERIFY(site->login(describeServer(1, 1)));
        const QmlServerModel model;
        QCOMPARE(model.count(), 1);
        site.reset();
        QCOMPARE(model.count(), 0);
    }

    void serverLeavesAndReturns_isFollowed()
    {
        TestSite site;
        SiteDescription one = describeServer(1, 1, u"north"_s);
        const SiteDescription two = describeServer(2, 2, u"north"_s);
        QVERIFY(site.login(two));
        one.peers = {describePeer(two)};
        QVERIFY(site.login(one));
        QmlServerModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        QCOMPARE(names(model), (QStringList{u"Recorder 1"_s, u"Recorder 2"_s}));
        const QPointer<QmlServer> first = model.get(0).value<QmlServer *>();
        const QPointer<QmlServer> second = model.get(1).value<QmlServer *>();

        QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
        one.peers.clear();
        site.describe(one);
        TestSite::deleteLeft();
        QCOMPARE(resets.size(), 1);
        QCOMPARE(names(model), QStringList{u"Recorder 1"_s});
        QVERIFY(first);
        QVERIFY(!second);

        QVERIFY(site.login(two));
        QCOMPARE(names(model), (QStringList{u"Recorder 1"_s, u"Recorder 2"_s}));
        QCOMPARE(model.get(0).value<QmlServer *>(), first.data());
        deleteItems(model);
    }

    void serverAndGroupGo_resetOncePerRefreshAndObject()
    {
        TestSite site;
        QVERIFY(site.login(describeServer(1, 1)));
        const QmlServerModel model;
        Q_EMIT site.manager().initialConnectionComplete();
        QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
        site.logOut();
        QCOMPARE(resets.size(), 4);
    }

    void serverOffline_keepsTheRow()
    {
        TestSite site;
        QVERIFY(site.login(describeServer(1, 1)));
        QmlServerModel model;
        QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
        const QPointer<QmlServer> item = model.get(0).value<QmlServer *>();
        site.lose(1);
        QCOMPARE(resets.size(), 0);
        QCOMPARE(names(model), QStringList{u"Recorder 1"_s});
        site.restore(1);
        QCOMPARE(resets.size(), 1);
        QCOMPARE(model.get(0).value<QmlServer *>(), item.data());
        deleteItems(model);
    }

    void countChanged_isNeverEmitted()
    {
        TestSite site;
        const QmlServerModel model;
        QSignalSpy changes(&model, &QmlServerModel::countChanged);
        QVERIFY(site.login(describeServer(1, 1)));
        QCOMPARE(model.count(), 1);
        site.logOut();
        QCOMPARE(changes.size(), 0);
    }

    void items_stayAlive_whenTheModelGoes()
    {
        TestSite site;
        QVERIFY(site.login(describeServer(1, 1)));
        auto *model = new QmlServerModel;
        const QPointer<QmlServer> item = model->get(0).value<QmlServer *>();
        delete model;
        QVERIFY(item);
        QCOMPARE(item->name(), u"Recorder 1"_s);
        delete item;
    }

    void signals_areDeclaredInOrder()
    {
        QCOMPARE(SignalOrder::declaredBy(QmlServerModel::staticMetaObject),
                 (QStringList{u"serverGroupIdChanged"_s, u"countChanged"_s}));
    }
};

} // namespace orrin

QTEST_GUILESS_MAIN(orrin::TestQmlServerModel)
#include "tst_qmlservermodel.moc"
