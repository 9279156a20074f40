// SPDX-License-Identifier: GPL-3.0-or-later
#include "modelchecks.h"
#include "signalorder.h"
#include "testsite.h"

#include "resources/qmlchannel.h"
#include "resources/qmlchannelmodel.h"

#include <contract/core/connectionmanager.h>
#include <contract/core/loginerror.h>
#include <contract/core/server.h>
#include <contract/core/servergroup.h>

#include "core/resources/server_p.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <limits>
#include <numeric>
#include <optional>

using namespace Qt::StringLiterals;

namespace orrin {

namespace {

enum Role { ServerUid = 258, ChannelId, SortId, UniqueId, Name, IsEnabled = 265, HasPtzf = 270, UniqueIdMeta = 272 };

QVariantList column(const QmlChannelModel &model, int role)
{
    QVariantList values;
    for (int row = 0; row < model.rowCount(); ++row)
        values.append(model.data(model.index(row, 0), role));
    return values;
}

SiteDescription describeCameras(quint64 uid, int serverId, const QList<int> &ids, const QString &group = {})
{
    SiteDescription site = describeServer(uid, serverId, group);
    for (const int id : ids)
        site.channels.append(describeCamera(id));
    return site;
}

SiteDescription describePtzf(quint64 uid, int serverId, const QString &group, const QSet<int> &permissions)
{
    SiteDescription site = describeCameras(uid, serverId, {1}, group);
    site.channels[0].ptzf = 1;
    site.user.permissions = permissions;
    return site;
}

} // namespace

class TestQmlChannelModel : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void model_isEmpty_withoutRootObject()
    {
        const QmlChannelModel model;
        QCOMPARE(model.count(), 0);
        QVERIFY(!model.get(0).isValid());
        QVERIFY(!model.data(model.index(0, 0), 256).isValid());
    }

    void table_followsTheRules()
    {
        TestSite site;
        QVERIFY(site.login(describeCameras(7, 2, {1})));
        const QmlChannelModel model;
        checkTable(model,
                   {"serverGroupId", "serverId", "serverUid", "channelId", "sortId", "channelUniqueId", "name",
                    "serverName", "isValid", "isEnabled", "isCamera", "isAudio", "isTalkback", "isData", "hasPtzf",
                    "trackCount", "channelUniqueIdMeta"},
                   {u"Server Group ID"_s, u"Server ID"_s, u"Server UID"_s, u"Channel ID"_s, u"Sort ID"_s,
                    u"Channel Unique ID"_s, u"Name"_s, u"Server Name"_s, u"Is Valid"_s, u"Is Enabled"_s,
                    u"Is Camera"_s, u"Is Audio"_s, u"Is Talkback"_s, u"Is Data"_s, u"Has PTZF"_s, u"Track Count"_s,
                    u"Channel Unique ID MetaType"_s},
                   u"Invalid column: %1"_s);
        QCOMPARE(model.data(model.index(0, 0), 256 + 17), u"Invalid column: 17"_s);
    }

    void columns_areProperties_whenTheUserHasAllRights()
    {
        TestSite site;
        SiteDescription description = describeCameras(7, 2, {1});
        description.channels[0].ptzf = 1;
        QVERIFY(site.login(description));
        const QmlChannelModel model;
        const auto *item = model.get(0).value<QmlChannel *>();
        QVERIFY(item);
        for (int column = 0; column < model.columnCount(); ++column) {
            const QByteArray role = model.roleNames().value(256 + column);
            if (role == "serverUid")
                QCOMPARE(model.data(model.index(0, column)), u"0000000000000007"_s);
            else if (role == "channelUniqueIdMeta")
                QCOMPARE(model.data(model.index(0, column)), ChannelUID(7, 1).toString());
            else
                QCOMPARE(model.data(model.index(0, column)), item->property(role.constData()));
        }
        QCOMPARE(model.data(model.index(0, 0), HasPtzf), true);
        QCOMPARE(model.data(model.index(0, 0), IsEnabled), true);
    }

    void properties_areCountAlone()
    {
        const QMetaObject &meta = QmlChannelModel::staticMetaObject;
        QCOMPARE(meta.propertyCount() - meta.propertyOffset(), 1);
        QCOMPARE(meta.property(meta.propertyOffset()).name(), "count");
        QCOMPARE(SignalOrder::declaredBy(meta),
                 (QStringList{u"serverGroupIdChanged"_s, u"serverIdChanged"_s, u"countChanged"_s}));
    }

    void rows_areSortedByIds_notBySortId()
    {
        TestSite site;
        SiteDescription south = describeCameras(3, 1, {2, 1}, u"south"_s);
        south.channels[0].sortId = 1;
        south.channels[1].sortId = 2;
        QVERIFY(site.login(describeCameras(1, 2, {4}, u"north"_s)));
        QVERIFY(site.login(south));
        QVERIFY(site.login(describeCameras(2, 1, {9, 5}, u"north"_s)));
        QmlChannelModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        QCOMPARE(column(model, 256), (QVariantList{1, 1, 1, 2, 2}));
        QCOMPARE(column(model, 257), (QVariantList{1, 1, 2, 1, 1}));
        QCOMPARE(column(model, ChannelId), (QVariantList{5, 9, 4, 1, 2}));
        QCOMPARE(column(model, SortId), (QVariantList{5, 9, 4, 2, 1}));
        for (const int row : {-1, model.count(), std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
            QVERIFY(!model.get(row).isValid());
        QCOMPARE(model.get(0).metaType(), QMetaType::fromType<QmlChannel *>());
    }

    void items_survive_whenTheirChannelStays()
    {
        TestSite site;
        QVERIFY(site.login(describeCameras(7, 2, {1, 2, 3})));
        QmlChannelModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        const QPointer<QmlChannel> first = model.get(0).value<QmlChannel *>();
        const QPointer<QmlChannel> second = model.get(1).value<QmlChannel *>();
        const QPointer<QmlChannel> third = model.get(2).value<QmlChannel *>();
        QCOMPARE(first->parent(), &model);
        site.describe(describeCameras(7, 2, {4, 3, 1}));
        QCOMPARE(column(model, ChannelId), (QVariantList{1, 3, 4}));
        QCOMPARE(model.get(0).value<QmlChannel *>(), first.data());
        QVERIFY(!second);
        QCOMPARE(model.get(1).value<QmlChannel *>(), third.data());
    }

    void items_die_whenTheModelGoes()
    {
        TestSite site;
        QVERIFY(site.login(describeCameras(7, 2, {1})));
        auto *model = new QmlChannelModel;
        const QPointer<QmlChannel> item = model->get(0).value<QmlChannel *>();
        QVERIFY(item);
        delete model;
        QVERIFY(!item);
    }

    void items_areToldByTheirPresentIds_whenQmlChangesThem()
    {
        TestSite site;
        QVERIFY(site.login(describeCameras(7, 2, {1, 2})));
        QmlChannelModel model;
        const QPointer<QmlChannel> strayed = model.get(0).value<QmlChannel *>();
        strayed->setChannelId(50);
        Q_EMIT site.manager().initialConnectionComplete();
        QVERIFY(!strayed);
        QCOMPARE(column(model, ChannelId), (QVariantList{1, 2}));
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
        QTest::newRow("serverOffline") << Emit([](auto &m) { Q_EMIT m.serverOffline(nullptr); }) << 1;
        QTest::newRow("serverReconnected") << Emit([](auto &m) { Q_EMIT m.serverReconnected(nullptr); }) << 1;
        QTest::newRow("allServersDisconnected") << Emit([](auto &m) { Q_EMIT m.allServersDisconnected(0); }) << 0;
    }
    void managerSignal_resets()
    {
        QFETCH(std::function<void(ConnectionManager &)>, emitSignal);
        TestSite site;
        const QmlChannelModel model;
        QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
        emitSignal(site.manager());
        QTEST(static_cast<int>(resets.size()), "resets");
    }

    void sessions_resetForTheirRealCauses()
    {
        TestSite site;
        QmlChannelModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
        const auto taken = [&resets] {
            const qsizetype count = resets.size();
            resets.clear();
            return count;
        };
        // Connected, and complete.
        QVERIFY(site.login(describeCameras(7, 2, {1})));
        QCOMPARE(taken(), 2);
        QVERIFY(site.failLogin());
        QCOMPARE(taken(), 1);
        site.lose(7);
        QCOMPARE(taken(), 1);
        site.restore(7);
        QCOMPARE(taken(), 1);
        // The facilities change once.
        site.describe(describeCameras(7, 2, {1, 2}));
        QCOMPARE(taken(), 1);
        QCOMPARE(model.count(), 2);
        site.describe(describeCameras(7, 2, {1, 2}));
        QCOMPARE(taken(), 0);
        // Timed out, and so offline.
        site.timeOutUser(7);
        QCOMPARE(taken(), 2);
        QCOMPARE(model.count(), 2);
    }

    void managerGoes_resets()
    {
        std::optional<TestSite> site(std::in_place);
        QVERIFY(site->login(describeCameras(7, 2, {1})));
        const QmlChannelModel model;
        QCOMPARE(model.count(), 1);
        site.reset();
        QCOMPARE(model.count(), 0);
    }

    void facilities_resetOnce_whenTheServerWasThereAtFirst()
    {
        TestSite site;
        Server *server = site.login(describeCameras(7, 2, {1}));
        QVERIFY(server);
        const QmlChannelModel model;
        QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
        Q_EMIT server->facilitiesUpdated(7);
        QCOMPARE(resets.size(), 1);
    }

    void facilities_resetOnce_afterRepeatedReconnects()
    {
        TestSite site;
        const QmlChannelModel model;
        Server *server = site.login(describeCameras(7, 2, {1}));
        QVERIFY(server);
        for (int i = 0; i < 5; ++i) {
            site.lose(7);
            site.restore(7);
        }
        QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
        Q_EMIT server->facilitiesUpdated(7);
        QCOMPARE(resets.size(), 1);
    }

    void serverAndGroupGo_resetOncePerRefreshAndObject()
    {
        TestSite site;
        QVERIFY(site.login(describeCameras(7, 2, {1, 2})));
        const QmlChannelModel model;
        Q_EMIT site.manager().initialConnectionComplete();
        QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
        site.logOut();
        QCOMPARE(resets.size(), 4);
        QCOMPARE(model.count(), 0);
    }

    void isEnabled_isFalse_whenTheUserMayNotView()
    {
        TestSite site;
        SiteDescription description = describeCameras(7, 2, {1, 2});
        description.channels[0].permitted = false;
        QVERIFY(site.login(description));
        const QmlChannelModel model;
        QCOMPARE(column(model, IsEnabled), (QVariantList{false, true}));
        QCOMPARE(column(model, Name), (QVariantList{u"Camera 1"_s, u"Camera 2"_s}));
        QVERIFY(model.get(0).value<QmlChannel *>()->isEnabled());

        // Rights are read anew each time.
        description.channels[0].permitted = true;
        description.channels[1].permitted = false;
        site.describe(description);
        QCOMPARE(column(model, IsEnabled), (QVariantList{true, false}));
    }

    void isEnabled_isFalse_whenTheChannelIsDisabled()
    {
        TestSite site;
        SiteDescription description = describeCameras(7, 2, {1});
        description.channels[0].enabled = false;
        QVERIFY(site.login(description));
        const QmlChannelModel model;
        QCOMPARE(column(model, IsEnabled), QVariantList{false});
    }

    void isEnabled_isRead_whileTheServerIsOffline_untilTheConfigurationGoes()
    {
        TestSite site;
        Server *server = site.login(describeCameras(7, 2, {1}));
        QVERIFY(server);
        const QmlChannelModel model;
        site.lose(7);
        QCOMPARE(column(model, IsEnabled), QVariantList{true});
        server->d_func()->config.reset();
        QCOMPARE(column(model, IsEnabled), QVariantList{false});
        QVERIFY(model.get(0).value<QmlChannel *>()->isEnabled());
    }

    void isEnabled_isTrue_whenNothingIsKnownOfRestrictions()
    {
        TestSite site;
        Server *server = site.login(describeCameras(7, 2, {1}));
        QVERIFY(server);
        server->d_func()->config->userConfigHelper().reset();
        const QmlChannelModel model;
        QCOMPARE(column(model, IsEnabled), QVariantList{true});
    }

    void isEnabled_isFalse_whenNobodyIsLoggedIn()
    {
        TestSite site;
        Server *server = site.login(describeCameras(7, 2, {1}));
        QVERIFY(server);
        const QmlChannelModel model;
        server->d_func()->user.reset();
        QCOMPARE(column(model, IsEnabled), QVariantList{false});
        QCOMPARE(column(model, HasPtzf), QVariantList{false});
    }

    void hasPtzf_needsTheRight()
    {
        TestSite site;
        QVERIFY(site.login(describePtzf(7, 2, {}, {16, 17})));
        const QmlChannelModel model;
        QCOMPARE(column(model, HasPtzf), QVariantList{true});
        site.describe(describePtzf(7, 2, {}, {16, 18}));
        QCOMPARE(column(model, HasPtzf), QVariantList{false});
        QmlChannel channel;
        channel.setServerGroupId(1);
        channel.setServerId(2);
        channel.setChannelId(1);
        QVERIFY(channel.hasPtzf());
    }

    void hasPtzf_isFalse_whenTheCameraIsFixed()
    {
        TestSite site;
        QVERIFY(site.login(describeCameras(7, 2, {1})));
        const QmlChannelModel model;
        QCOMPARE(column(model, HasPtzf), QVariantList{false});
    }

    // The right is that of the group's first login, whatever the server of the row is.
    void hasPtzf_asksTheFirstLoginOfTheGroup()
    {
        TestSite site;
        QVERIFY(site.login(describePtzf(1, 1, u"north"_s, {17})));
        QVERIFY(site.login(describePtzf(2, 2, u"north"_s, {})));
        QVERIFY(site.login(describePtzf(3, 1, u"south"_s, {})));
        QVERIFY(site.login(describePtzf(4, 2, u"south"_s, {17})));
        const QmlChannelModel model;
        QCOMPARE(column(model, HasPtzf), (QVariantList{true, true, false, false}));
    }

    void countChanged_isNeverEmitted()
    {
        TestSite site;
        const QmlChannelModel model;
        SignalOrder order(const_cast<QmlChannelModel *>(&model));
        QVERIFY(site.login(describeCameras(7, 2, {1})));
        QCOMPARE(model.count(), 1);
        site.logOut();
        QCOMPARE(order.take(), QStringList());
    }

    void channels_areListedOnce_whenTheServerRepeatsThem()
    {
        TestSite site;
        QVERIFY(site.login(describeCameras(7, 2, {1, 1, 2, 1})));
        QmlChannelModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        QCOMPARE(column(model, ChannelId), (QVariantList{1, 2}));
    }

    void names_areShown_whenTheyAreLongOrBroken()
    {
        TestSite site;
        SiteDescription description = describeCameras(7, 2, {1, 2});
        description.channels[0].name = QString(1000, u'x');
        description.channels[1].name = QString::fromUtf8("\xff\xc3\x28 Gate \x80");
        QVERIFY(site.login(description));
        const QmlChannelModel model;
        QCOMPARE(column(model, Name), (QVariantList{description.channels[0].name, description.channels[1].name}));
    }

    void model_isComplete_whenTheServerHasVeryManyChannels()
    {
        TestSite site;
        QList<int> ids(100'000);
        std::iota(ids.begin(), ids.end(), 1);
        QVERIFY(site.login(describeCameras(7, 2, ids)));
        const QmlChannelModel model;
        QCOMPARE(model.count(), 100'000);
        QCOMPARE(model.data(model.index(99'999, 0), ChannelId), 100'000);
        Q_EMIT site.manager().initialConnectionComplete();
        QCOMPARE(model.count(), 100'000);
    }

    void refresh_isConsistent_whenAnItemDiesMeanwhile()
    {
        TestSite site;
        QVERIFY(site.login(describeCameras(7, 2, {1, 2, 3})));
        QmlChannelModel model;
        const QPointer<QmlChannel> third = model.get(2).value<QmlChannel *>();
        connect(&model, &QAbstractItemModel::modelAboutToBeReset, this, [&] { delete third.data(); });
        Q_EMIT site.manager().initialConnectionComplete();
        QCOMPARE(column(model, ChannelId), (QVariantList{1, 2, 3}));
        QCOMPARE(model.children().size(), 3);
    }

    void refresh_isConsistent_whenAnItemsEndEndsTheModel()
    {
        TestSite site;
        QVERIFY(site.login(describeCameras(7, 2, {1, 2})));
        auto *model = new QmlChannelModel;
        const QPointer<QmlChannelModel> alive = model;
        connect(model->get(0).value<QmlChannel *>(), &QObject::destroyed, this, [alive] { delete alive.data(); });
        site.describe(describeCameras(7, 2, {2}));
        QVERIFY(!alive);
    }

    void data_isSafe_whenAHandlerRefreshesMeanwhile()
    {
        TestSite site;
        QVERIFY(site.login(describeCameras(7, 2, {1, 2})));
        QmlChannelModel model;
        connect(model.get(0).value<QmlChannel *>(), &QmlChannel::nameChanged, this,
                [&] { site.describe(describeCameras(7, 2, {2})); });
        QVERIFY(!model.data(model.index(0, 0), Name).toString().isEmpty());
        QCOMPARE(model.count(), 1);
    }
};

} // namespace orrin

QTEST_GUILESS_MAIN(orrin::TestQmlChannelModel)
#include "tst_qmlchannelmodel.moc"
