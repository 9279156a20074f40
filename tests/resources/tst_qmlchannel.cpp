// SPDX-License-Identifier: GPL-3.0-or-later
#include "loglines.h"
#include "signalorder.h"
#include "testsite.h"

#include "resources/qmlchannel.h"

#include <contract/core/channel.h>
#include <contract/core/server.h>
#include <contract/core/servergroup.h>

#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;

namespace orrin {

namespace {

const QStringList updateSignals = {u"channelUniqueIdChanged"_s, u"nameChanged"_s,       u"serverNameChanged"_s,
                                   u"isValidChanged"_s,         u"isEnabledChanged"_s,  u"isCameraChanged"_s,
                                   u"isAudioChanged"_s,         u"isTalkbackChanged"_s, u"isDataChanged"_s,
                                   u"hasPtzfChanged"_s,         u"trackCountChanged"_s};

void view(QmlChannel &view, int group, int server, int channel)
{
    view.setServerGroupId(group);
    view.setServerId(server);
    view.setChannelId(channel);
}

SiteDescription describeOneCamera()
{
    SiteDescription site = describeServer(7, 2);
    ChannelDescription camera = describeCamera(5, u"Gate"_s);
    camera.sortId = 3;
    camera.ptzf = 1;
    camera.tracks = {describeTrack(1), describeTrack(2)};
    site.channels = {camera};
    return site;
}

} // namespace

class TestQmlChannel : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void ids_areUnset_atFirst()
    {
        const QmlChannel channel;
        QCOMPARE(channel.serverGroupId(), -1);
        QCOMPARE(channel.serverId(), -1);
        QCOMPARE(channel.channelId(), -1);
    }

    void property_notifiesBySignalOfItsName_data() { addProperties(); }
    void property_notifiesBySignalOfItsName()
    {
        QFETCH(QByteArray, name);
        const QMetaObject &meta = QmlChannel::staticMetaObject;
        const QMetaProperty property = meta.property(meta.indexOfProperty(name.constData()));
        // isCamera is announced by the signal of isAudio; its own exists all the same.
        QCOMPARE(property.notifySignal().name(), name == "isCamera" ? QByteArray("isAudioChanged") : name + "Changed");
        QVERIFY(meta.indexOfSignal((name + "Changed()").constData()) >= 0);
        QCOMPARE(property.isWritable(), QByteArrayList({"serverGroupId", "serverId", "channelId"}).contains(name));
    }

    void property_readsFallback_whenTheChannelIsAbsent_data() { addProperties(); }
    void property_readsFallback_whenTheChannelIsAbsent()
    {
        QFETCH(QByteArray, name);
        QFETCH(QVariant, fallback);
        const QmlChannel channel;
        QCOMPARE(channel.property(name.constData()), fallback);
        TestSite site;
        QCOMPARE(channel.property(name.constData()), fallback);
    }

    void property_readsChannel_whenItIsThere_data() { addProperties(); }
    void property_readsChannel_whenItIsThere()
    {
        QFETCH(QByteArray, name);
        QFETCH(QVariant, value);
        TestSite site;
        QVERIFY(site.login(describeOneCamera()));
        QmlChannel channel;
        view(channel, 1, 2, 5);
        QCOMPARE(channel.property(name.constData()), value);
    }

    void kind_isRead_data()
    {
        using Kind = ChannelDescription::Kind;
        QTest::addColumn<Kind>("kind");
        QTest::addColumn<QList<bool>>("flags"); // isCamera, isAudio, isTalkback, isData, hasPtzf
        QTest::newRow("camera") << Kind::Camera << QList<bool>{true, false, false, false, true};
        QTest::newRow("audio") << Kind::Audio << QList<bool>{false, true, false, false, false};
        QTest::newRow("talkback") << Kind::Talkback << QList<bool>{false, false, true, false, false};
        QTest::newRow("data") << Kind::Data << QList<bool>{false, false, false, true, false};
    }
    void kind_isRead()
    {
        QFETCH(ChannelDescription::Kind, kind);
        QFETCH(QList<bool>, flags);
        TestSite site;
        SiteDescription description = describeOneCamera();
        description.channels[0].kind = kind;
        QVERIFY(site.login(description));
        QmlChannel channel;
        view(channel, 1, 2, 5);
        QCOMPARE((QList<bool>{channel.isCamera(), channel.isAudio(), channel.isTalkback(), channel.isData(),
                              channel.hasPtzf()}),
                 flags);
    }

    void hasPtzf_isFalse_whenTheCameraIsFixed()
    {
        TestSite site;
        SiteDescription description = describeOneCamera();
        description.channels[0].ptzf = 0;
        QVERIFY(site.login(description));
        QmlChannel channel;
        view(channel, 1, 2, 5);
        QVERIFY(!channel.hasPtzf());
    }

    void hasPtzf_isTrue_whenTheUserHasNoRightToIt()
    {
        TestSite site;
        SiteDescription description = describeOneCamera();
        description.user.permissions.clear();
        description.channels[0].permitted = false;
        QVERIFY(site.login(description));
        QmlChannel channel;
        view(channel, 1, 2, 5);
        QVERIFY(channel.hasPtzf());
        QVERIFY(channel.isEnabled());
    }

    void channelUid_isThatOfTheCore_orNull()
    {
        TestSite site;
        QVERIFY(site.login(describeOneCamera()));
        QmlChannel channel;
        QVERIFY(channel.channelUid().isNull());
        view(channel, 1, 2, 5);
        QCOMPARE(channel.channelUid(), ChannelUID(7, 5));
    }

    void serverName_isRead_whenOnlyTheServerIsThere()
    {
        TestSite site;
        QVERIFY(site.login(describeOneCamera()));
        QmlChannel channel;
        view(channel, 1, 2, 99);
        QCOMPARE(channel.name(), QString());
        QCOMPARE(channel.serverName(), u"Recorder 7"_s);
    }

    void channelUniqueId_wraps_whenTheNumbersAreHuge()
    {
        TestSite site;
        SiteDescription description = describeOneCamera();
        description.channels[0].sortId = std::numeric_limits<int>::max();
        QVERIFY(site.login(description));
        QmlChannel channel;
        view(channel, 1, 2, 5);
        QCOMPARE(channel.channelUniqueId(), static_cast<int>(1002000u + 0x7fffffffu));
    }

    void read_emitsUpdate_whenLoginCameAfterTheIds()
    {
        TestSite site;
        QmlChannel channel;
        view(channel, 1, 2, 5);
        QCOMPARE(channel.sortId(), -1);
        QCOMPARE(channel.name(), QString());
        QCOMPARE(channel.channelUniqueId(), -1);
        QVERIFY(site.login(describeOneCamera()));
        SignalOrder order(&channel);
        QCOMPARE(channel.sortId(), 3);
        QCOMPARE(order.take(), updateSignals);
        QCOMPARE(channel.name(), u"Gate"_s);
        QCOMPARE(channel.channelUniqueId(), 1002003);
        QCOMPARE(order.take(), QStringList());
    }

    void setId_emitsOnlyItsSignal_whenItChanges()
    {
        QmlChannel channel;
        SignalOrder order(&channel);
        view(channel, 1, -5, std::numeric_limits<int>::min());
        QCOMPARE(order.take(), (QStringList{u"serverGroupIdChanged"_s, u"serverIdChanged"_s, u"channelIdChanged"_s}));
        view(channel, 1, -5, std::numeric_limits<int>::min());
        QCOMPARE(order.take(), QStringList());
    }

    void setChannelId_readsFallbacks_whenTheServerHasNoSuchChannel()
    {
        TestSite site;
        QVERIFY(site.login(describeOneCamera()));
        QmlChannel channel;
        view(channel, 1, 2, 5);
        QCOMPARE(channel.name(), u"Gate"_s);
        channel.setChannelId(6);
        SignalOrder order(&channel);
        QCOMPARE(channel.name(), QString());
        QCOMPARE(channel.channelUniqueId(), -1);
        // The last channel found is still remembered: to come back to it is no news.
        channel.setChannelId(5);
        QCOMPARE(channel.name(), u"Gate"_s);
        QCOMPARE(order.take(), QStringList{u"channelIdChanged"_s});
    }

    void channelGoes_emitsUpdateOnce_andFallbacksAreRead()
    {
        TestSite site;
        QVERIFY(site.login(describeOneCamera()));
        QmlChannel channel;
        view(channel, 1, 2, 5);
        QCOMPARE(channel.name(), u"Gate"_s);
        SignalOrder order(&channel);
        SiteDescription empty = describeServer(7, 2);
        site.describe(empty);
        TestSite::deleteLeft();
        QCOMPARE(order.take(), updateSignals);
        QCOMPARE(channel.name(), QString());
        QCOMPARE(channel.trackCount(), 0);
    }

    void channelReturns_isReadAgain()
    {
        TestSite site;
        QVERIFY(site.login(describeOneCamera()));
        QmlChannel channel;
        view(channel, 1, 2, 5);
        QCOMPARE(channel.name(), u"Gate"_s);
        site.describe(describeServer(7, 2));
        TestSite::deleteLeft();
        QCOMPARE(channel.name(), QString());
        site.describe(describeOneCamera());
        SignalOrder order(&channel);
        QCOMPARE(channel.name(), u"Gate"_s);
        QCOMPARE(order.take(), updateSignals);
    }

    void sortIdChanged_isNeverEmitted_whenTheSortIdChanges()
    {
        TestSite site;
        QVERIFY(site.login(describeOneCamera()));
        QmlChannel channel;
        view(channel, 1, 2, 5);
        QCOMPARE(channel.sortId(), 3);
        SignalOrder order(&channel);
        SiteDescription moved = describeOneCamera();
        moved.channels[0].sortId = 8;
        site.describe(moved);
        TestSite::deleteLeft();
        QCOMPARE(channel.sortId(), 8);
        QVERIFY(!order.take().contains(u"sortIdChanged"_s));
    }

    void read_isSafe_whenAHandlerDeletesTheView()
    {
        TestSite site;
        QVERIFY(site.login(describeOneCamera()));
        auto *channel = new QmlChannel;
        view(*channel, 1, 2, 5);
        const QPointer<QmlChannel> alive = channel;
        connect(channel, &QmlChannel::nameChanged, this, [channel] { delete channel; });
        QCOMPARE(channel->channelUniqueId(), 1002003);
        QVERIFY(!alive);
    }

    void read_isSafe_whenAHandlerEndsTheServer()
    {
        TestSite site;
        QVERIFY(site.login(describeOneCamera()));
        QmlChannel channel;
        view(channel, 1, 2, 5);
        connect(&channel, &QmlChannel::nameChanged, this, [&site] { site.logOut(); });
        QVERIFY(!channel.hasPtzf());
        QCOMPARE(channel.sortId(), -1);
    }

    void name_isWhole_whenItIsLong()
    {
        TestSite site;
        SiteDescription description = describeOneCamera();
        description.channels[0].name = QString(1000, u'\u65e5');
        QVERIFY(site.login(description));
        QmlChannel channel;
        view(channel, 1, 2, 5);
        QCOMPARE(channel.name(), QString(1000, u'\u65e5'));
    }

    void lifetime_isTraced()
    {
        LogLines lines;
        auto *channel = new QmlChannel;
        QVERIFY(lines.takeOnly("orrin::QmlChannel::QmlChannel", channel));
        const void *address = channel;
        delete channel;
        QVERIFY(lines.takeOnly("orrin::QmlChannel::~QmlChannel", address));
    }

private:
    void addProperties()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QVariant>("fallback");
        QTest::addColumn<QVariant>("value");
        const auto add = [](const char *name, const QVariant &fallback, const QVariant &value) {
            QTest::newRow(name) << QByteArray(name) << fallback << value;
        };
        add("serverGroupId", -1, 1);
        add("serverId", -1, 2);
        add("channelId", -1, 5);
        add("sortId", -1, 3);
        add("channelUniqueId", -1, 1002003);
        add("name", QString(), u"Gate"_s);
        add("serverName", QString(), u"Recorder 7"_s);
        add("isValid", false, true);
        add("isEnabled", false, true);
        add("isCamera", false, true);
        add("isAudio", false, false);
        add("isTalkback", false, false);
        add("isData", false, false);
        add("hasPtzf", false, true);
        add("trackCount", 0, 2);
    }
};

} // namespace orrin

QTEST_GUILESS_MAIN(orrin::TestQmlChannel)
#include "tst_qmlchannel.moc"
