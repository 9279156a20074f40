// SPDX-License-Identifier: GPL-3.0-or-later
#include "modelchecks.h"
#include "signalorder.h"
#include "testsite.h"

#include "resources/qmltrack.h"
#include "resources/qmltrackmodel.h"

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
void deleteItems(const QmlTrackModel &model)
{
    for (int row = 0; row < model.count(); ++row)
        delete model.get(row).value<QmlTrack *>();
}

// Each row as "group/server/channel/track".
QStringList paths(const QmlTrackModel &model)
{
    QStringList paths;
    for (int row = 0; row < model.rowCount(); ++row) {
        QStringList ids;
        for (int column = 0; column < 4; ++column)
            ids.append(model.data(model.index(row, column)).toString());
        paths.append(ids.join(u'/'));
    }
    return paths;
}

// Two cameras, 9 with tracks 1 and 2, 3 with track 1; 9 comes first by sort id.
SiteDescription describeTwoCameras(quint64 uid, int serverId, const QString &group)
{
    SiteDescription site = describeServer(uid, serverId, group);
    ChannelDescription first = describeCamera(9);
    first.sortId = 1;
    first.tracks = {describeTrack(2, TrackType::Audio), describeTrack(1)};
    ChannelDescription second = describeCamera(3);
    second.sortId = 2;
    site.channels = {second, first};
    return site;
}

} // namespace

class TestQmlTrackModel : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void model_isEmpty_withoutRootObject()
    {
        QmlTrackModel model;
        QCOMPARE(model.count(), 0);
        QCOMPARE(model.serverGroupId(), -1);
        QCOMPARE(model.serverId(), -1);
        QCOMPARE(model.channelId(), -1);
        QVERIFY(!model.get(0).isValid());
    }

    void table_followsTheRules()
    {
        TestSite site;
        QVERIFY(site.login(describeTwoCameras(1, 1, {})));
        const QmlTrackModel model;
        checkTable(model, {"serverGroupId", "serverId", "channelId", "trackId", "name", "isEnabled", "type"},
                   {u"Server Group ID"_s, u"Server ID"_s, u"Channel ID"_s, u"Track ID"_s, u"Name"_s, u"Is enabled"_s,
                    u"Type"_s},
                   u"Invalid column: %1"_s);
        deleteItems(model);
    }

    void columns_areProperties()
    {
        TestSite site;
        QVERIFY(site.login(describeTwoCameras(1, 1, {})));
        const QmlTrackModel model;
        const auto *item = model.get(1).value<QmlTrack *>();
        QVERIFY(item);
        for (int column = 0; column < model.columnCount(); ++column) {
            const QByteArray role = model.roleNames().value(256 + column);
            QCOMPARE(model.data(model.index(1, column)), item->property(role.constData()));
        }
        QCOMPARE(model.data(model.index(1, 6)), u"Audio"_s);
        deleteItems(model);
    }

    void rows_stayInWalkingOrder_andFiltersNarrow()
    {
        TestSite site;
        QVERIFY(site.login(describeTwoCameras(1, 1, u"north"_s)));
        QVERIFY(site.login(describeTwoCameras(2, 2, u"north"_s)));
        QVERIFY(site.login(describeTwoCameras(3, 1, u"south"_s)));
        QmlTrackModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        QCOMPARE(paths(model), (QStringList{u"1/1/9/1"_s, u"1/1/9/2"_s, u"1/1/3/1"_s, u"1/2/9/1"_s, u"1/2/9/2"_s,
                                            u"1/2/3/1"_s, u"2/1/9/1"_s, u"2/1/9/2"_s, u"2/1/3/1"_s}));
        // One channel of every server.
        model.setChannelId(3);
        QCOMPARE(paths(model), (QStringList{u"1/1/3/1"_s, u"1/2/3/1"_s, u"2/1/3/1"_s}));
        model.setServerId(1);
        QCOMPARE(paths(model), (QStringList{u"1/1/3/1"_s, u"2/1/3/1"_s}));
        model.setServerGroupId(2);
        QCOMPARE(paths(model), QStringList{u"2/1/3/1"_s});
        model.setServerGroupId(0);
        QCOMPARE(paths(model), QStringList());
        model.setServerGroupId(std::numeric_limits<int>::min());
        model.setServerId(-3);
        model.setChannelId(-1);
        QCOMPARE(model.count(), 9);
        deleteItems(model);
    }

    void setFilter_refreshesThenEmits_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::newRow("serverGroupId") << QByteArray("serverGroupId");
        QTest::newRow("serverId") << QByteArray("serverId");
        QTest::newRow("channelId") << QByteArray("channelId");
    }
    void setFilter_refreshesThenEmits()
    {
        QFETCH(QByteArray, name);
        TestSite site;
        QmlTrackModel model;
        QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
        SignalOrder order(&model);
        QVERIFY(model.setProperty(name.constData(), 4));
        QCOMPARE(model.property(name.constData()), 4);
        QCOMPARE(order.take(), QStringList{QString::fromLatin1(name) + u"Changed"_s});
        QCOMPARE(resets.size(), 1);
        QVERIFY(model.setProperty(name.constData(), 4));
        QCOMPARE(order.take(), QStringList());
        QCOMPARE(resets.size(), 1);
    }

    void setFilter_isSafe_whenAReceiverDeletesTheModel()
    {
        TestSite site;
        auto *model = new QmlTrackModel;
        const QPointer<QmlTrackModel> alive = model;
        connect(model, &QAbstractItemModel::modelReset, this, [model] { delete model; });
        model->setChannelId(2);
        QVERIFY(!alive);
    }

    void get_isInvalid_outOfRange()
    {
        TestSite site;
        QVERIFY(site.login(describeTwoCameras(1, 1, {})));
        const QmlTrackModel model;
        for (const int row : {-1, 3, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
            QVERIFY(!model.get(row).isValid());
        QCOMPARE(model.get(2).metaType(), QMetaType::fromType<QmlTrack *>());
        deleteItems(model);
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
        QTest::newRow("serverOffline") << Emit([](auto &m) { Q_EMIT m.serverOffline(nullptr); }) << 0;
        QTest::newRow("serverReconnected") << Emit([](auto &m) { Q_EMIT m.serverReconnected(nullptr); }) << 0;
        QTest::newRow("allServersDisconnected") << Emit([](auto &m) { Q_EMIT m.allServersDisconnected(0); }) << 0;
    }
    void managerSignal_resets()
    {
        QFETCH(std::function<void(ConnectionManager &)>, emitSignal);
        TestSite site;
        const QmlTrackModel model;
        QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
        emitSignal(site.manager());
        QTEST(static_cast<int>(resets.size()), "resets");
    }

    void managerGoes_resets()
    {
        std::optional<TestSite> site(std::in_place);
        QVERIFY(site->login(describeTwoCameras(1, 1, {})));
        const QmlTrackModel model;
        QCOMPARE(model.count(), 3);
        site.reset();
        QCOMPARE(model.count(), 0);
    }

    void objectsGo_resetOncePerRefreshAndObject()
    {
        TestSite site;
        QVERIFY(site.login(describeTwoCameras(1, 1, {})));
        const QmlTrackModel model;
        Q_EMIT site.manager().initialConnectionComplete();
        QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
        site.logOut();
        // Three tracks, two channels, a server and its group, each after two refreshes.
        QCOMPARE(resets.size(), 2 * 7);
        QCOMPARE(model.count(), 0);
    }

    void trackGoes_isFollowed_andOthersSurvive()
    {
        TestSite site;
        SiteDescription description = describeTwoCameras(1, 1, {});
        QVERIFY(site.login(description));
        QmlTrackModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        const QPointer<QmlTrack> first = model.get(0).value<QmlTrack *>();
        const QPointer<QmlTrack> second = model.get(1).value<QmlTrack *>();
        const QPointer<QmlTrack> third = model.get(2).value<QmlTrack *>();
        QVERIFY(!first->parent());
        description.channels[1].tracks = {describeTrack(1)};
        site.describe(description);
        TestSite::deleteLeft();
        QCOMPARE(paths(model), (QStringList{u"1/1/9/1"_s, u"1/1/3/1"_s}));
        QVERIFY(!second);
        QCOMPARE(model.get(0).value<QmlTrack *>(), first.data());
        QCOMPARE(model.get(1).value<QmlTrack *>(), third.data());
        deleteItems(model);
    }

    void refreshes_stayBounded_whenTracksGoOneByOne()
    {
        TestSite site;
        SiteDescription description = describeServer(1, 1);
        ChannelDescription camera = describeCamera(1);
        camera.tracks.clear();
        for (int id = 1; id <= 40; ++id)
            camera.tracks.append(describeTrack(id));
        description.channels = {camera};
        QVERIFY(site.login(description));
        QmlTrackModel model;
        QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
        while (description.channels[0].tracks.size() > 1) {
            description.channels[0].tracks.removeLast();
            site.describe(description);
            TestSite::deleteLeft();
        }
        QCOMPARE(model.count(), 1);
        QVERIFY(resets.size() <= 39 * 16);
        deleteItems(model);
    }

    void countChanged_isNeverEmitted()
    {
        TestSite site;
        QmlTrackModel model;
        SignalOrder order(&model);
        QVERIFY(site.login(describeTwoCameras(1, 1, {})));
        QCOMPARE(model.count(), 3);
        site.logOut();
        QCOMPARE(order.take(), QStringList());
    }

    void items_stayAlive_whenTheModelGoes()
    {
        TestSite site;
        QVERIFY(site.login(describeTwoCameras(1, 1, {})));
        auto *model = new QmlTrackModel;
        QList<QmlTrack *> items;
        for (int row = 0; row < model->count(); ++row)
            items.append(model->get(row).value<QmlTrack *>());
        delete model;
        QCOMPARE(items.at(0)->name(), u"Stream 1"_s);
        qDeleteAll(items);
    }

    void signals_areDeclaredInOrder()
    {
        QCOMPARE(SignalOrder::declaredBy(QmlTrackModel::staticMetaObject),
                 (QStringList{u"serverGroupIdChanged"_s, u"serverIdChanged"_s, u"channelIdChanged"_s,
                              u"countChanged"_s}));
    }
};

} // namespace orrin

QTEST_GUILESS_MAIN(orrin::TestQmlTrackModel)
#include "tst_qmltrackmodel.moc"
