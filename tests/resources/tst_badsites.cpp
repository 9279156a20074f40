// SPDX-License-Identifier: GPL-3.0-or-later
#include "modelchecks.h"
#include "testsite.h"

#include "resources/qmlchannel.h"
#include "resources/qmlchannelmodel.h"
#include "resources/qmlsortfilterproxymodel.h"
#include "resources/qmlserver.h"
#include "resources/qmltrackmodel.h"

#include <contract/core/channel.h>
#include <contract/core/server.h>

#include <QAbstractItemModelTester>
#include <QTest>

#include <limits>
#include <memory>

using namespace Qt::StringLiterals;

namespace orrin {

namespace {

constexpr int NameRole = 262;

QStringList names(const QAbstractItemModel &model)
{
    QStringList list;
    for (int row = 0; row < model.rowCount(); ++row)
        list.append(model.index(row, 0).data(NameRole).toString());
    return list;
}

} // namespace

/*! What servers should not tell, and what hosts should not ask. */
class TestBadSites : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Items that left a model go with the event loop.
    void cleanup() { TestSite::deleteLeft(); }

    void hundredThousandChannels_areListedAndFiltered()
    {
        TestSite site;
        SiteDescription description = describeServer(1, 1);
        for (int id = 1; id <= 100'000; ++id)
            description.channels.append(describeCamera(id, u"Camera %1"_s.arg(id)));
        QVERIFY(site.login(description));
        QmlChannelModel model;
        QCOMPARE(model.rowCount(), 100'000);
        QmlSortFilterProxyModel filter;
        filter.setSourceModel(&model);
        filter.setProperty("filterRole", QByteArray("name"));
        filter.setProperty("filterRegExp", u"Camera 99999$"_s);
        // A name that could still become the wanted one passes too.
        QCOMPARE(names(filter), (QStringList{u"Camera 9"_s, u"Camera 99"_s, u"Camera 999"_s, u"Camera 9999"_s, u"Camera 99999"_s}));
        // All but one leave at once.
        description.channels.resize(1);
        site.describe(description);
        QCOMPARE(model.rowCount(), 1);
        QCOMPARE(filter.rowCount(), 0);
    }

    void channelsWithOneId_becomeOneChannel()
    {
        TestSite site;
        SiteDescription description = describeServer(1, 1);
        description.channels = {describeCamera(1, u"Gate"_s), describeCamera(2, u"Yard"_s), describeCamera(1, u"Door"_s)};
        Server *server = site.login(description);
        QVERIFY(server);
        QmlChannelModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        QCOMPARE(model.rowCount(), 2);
        QCOMPARE(server->channels(Server::SortBySortId).size(), 2);
        site.describe(description);
        QCOMPARE(model.rowCount(), 2);
    }

    void brokenNames_stayText_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("lone continuation") << QByteArray("Gate \x80\xbf");
        QTest::newRow("cut sequence") << QByteArray("Gate \xe2\x82");
        QTest::newRow("overlong") << QByteArray("Gate \xc0\xaf");
        QTest::newRow("surrogate") << QByteArray("Gate \xed\xa0\x80");
        QTest::newRow("beyond the last") << QByteArray("Gate \xf7\xbf\xbf\xbf");
        QTest::newRow("zero inside") << QByteArray("Gate\0Yard", 9);
        QTest::newRow("right to left") << QByteArray("Gate \xe2\x80\xae yard");
    }

    void brokenNames_stayText()
    {
        QFETCH(QByteArray, bytes);
        TestSite site;
        SiteDescription description = describeServer(1, 1);
        const QString name = QString::fromUtf8(bytes);
        description.channels = {describeCamera(1, name)};
        QVERIFY(site.login(description));
        QmlChannelModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        QCOMPARE(names(model), QStringList{name});
        QmlSortFilterProxyModel filter;
        filter.setSourceModel(&model);
        filter.setProperty("filterRole", QByteArray("name"));
        filter.setProperty("filterRegExp", u"^Gate"_s);
        QCOMPARE(filter.rowCount(), 1);
    }

    void nameOfAMegabyte_staysWhole()
    {
        TestSite site;
        SiteDescription description = describeServer(1, 1);
        const QString name(1'000'000, u'x');
        description.channels = {describeCamera(1, name)};
        QVERIFY(site.login(description));
        QmlChannelModel model;
        QCOMPARE(names(model), QStringList{name});
    }

    void oddIds_findNothing_data()
    {
        QTest::addColumn<int>("id");
        QTest::newRow("zero") << 0;
        QTest::newRow("negative") << -1;
        QTest::newRow("lowest") << std::numeric_limits<int>::min();
        QTest::newRow("highest") << std::numeric_limits<int>::max();
        QTest::newRow("beyond 24 bits") << (1 << 24) + 1;
    }

    void oddIds_findNothing()
    {
        QFETCH(int, id);
        TestSite site;
        SiteDescription description = describeServer(1, 1);
        description.channels = {describeCamera(1, u"Gate"_s)};
        QVERIFY(site.login(description));
        QmlChannel channel;
        channel.setServerGroupId(1);
        channel.setServerId(1);
        channel.setChannelId(id);
        QCOMPARE(channel.name(), QString());
        QVERIFY(!channel.isValid());
        QmlServer server;
        server.setServerGroupId(id);
        server.setServerId(id);
        QCOMPARE(server.name(), QString());
        QmlTrackModel tracks;
        tracks.setServerGroupId(1);
        tracks.setServerId(1);
        tracks.setChannelId(id);
        // Below 0 the model is not narrowed to a channel.
        QCOMPARE(tracks.rowCount(), id < 0 ? 1 : 0);
    }

    void itemsDestroyedInAChangeHandler_leaveTheOthersWhole()
    {
        TestSite site;
        SiteDescription description = describeServer(1, 1);
        description.channels = {describeCamera(1, u"Gate"_s), describeCamera(2, u"Yard"_s)};
        QVERIFY(site.login(description));
        auto first = std::make_unique<QmlChannel>();
        QmlChannel second;
        int told = 0;
        const auto view = [](QmlChannel &channel, int id) {
            channel.setServerGroupId(1);
            channel.setServerId(1);
            channel.setChannelId(id);
        };
        view(*first, 1);
        view(second, 2);
        QCOMPARE(first->name(), u"Gate"_s);
        connect(first.get(), &QmlChannel::nameChanged, this, [&] {
            if (first)
                first.release()->deleteLater();
        });
        connect(&second, &QmlChannel::nameChanged, this, [&] { ++told; });
        QCOMPARE(second.name(), u"Yard"_s);
        told = 0;
        // Both channels go, and what shows the first one with it.
        description.channels.clear();
        site.describe(description);
        TestSite::deleteLeft();
        QVERIFY(!first);
        QCOMPARE(second.name(), QString());
        QVERIFY(told > 0);
    }

    void modelDestroyedDuringARefresh_leavesTheOthersWhole()
    {
        TestSite site;
        SiteDescription description = describeServer(1, 1);
        description.channels = {describeCamera(1, u"Gate"_s)};
        QVERIFY(site.login(description));
        auto *first = new QmlChannelModel;
        QmlChannelModel second;
        connect(first, &QAbstractItemModel::modelReset, this, [first] { first->deleteLater(); });
        description.channels.append(describeCamera(2, u"Yard"_s));
        site.describe(description);
        TestSite::deleteLeft();
        QCOMPARE(second.rowCount(), 2);
    }
};

} // namespace orrin

QTEST_GUILESS_MAIN(orrin::TestBadSites)
#include "tst_badsites.moc"
