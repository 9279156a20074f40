// SPDX-License-Identifier: GPL-3.0-or-later
#include "loglines.h"
#include "signalorder.h"
#include "testsite.h"

#include "resources/qmltrack.h"

#include <contract/core/server.h>

#include <QTest>

using namespace Qt::StringLiterals;

namespace orrin {

namespace {

const QStringList updateSignals = {u"nameChanged"_s, u"isEnabledChanged"_s, u"typeChanged"_s};

SiteDescription describeTracks(const QList<TrackDescription> &tracks)
{
    SiteDescription site = describeServer(7, 2);
    ChannelDescription camera = describeCamera(5);
    camera.tracks = tracks;
    site.channels = {camera};
    return site;
}

void view(QmlTrack &view)
{
    view.setServerGroupId(1);
    view.setServerId(2);
    view.setChannelId(5);
}

} // namespace

class TestQmlTrack : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void ids_areUnsetButTheTrack_atFirst()
    {
        const QmlTrack track;
        QCOMPARE(track.serverGroupId(), -1);
        QCOMPARE(track.serverId(), -1);
        QCOMPARE(track.channelId(), -1);
        QCOMPARE(track.trackId(), 1);
    }

    void fallbacks_areRead_whenTheTrackIsAbsent()
    {
        QmlTrack track;
        QCOMPARE(track.name(), QString());
        QVERIFY(!track.isEnabled());
        QCOMPARE(track.type(), QString());
        TestSite site;
        view(track);
        QCOMPARE(track.name(), QString());
        QVERIFY(!track.isEnabled());
        QCOMPARE(track.type(), QString());
    }

    void property_notifiesBySignalOfItsName()
    {
        const QMetaObject &meta = QmlTrack::staticMetaObject;
        QCOMPARE(meta.propertyCount() - meta.propertyOffset(), 7);
        for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i)
            QCOMPARE(meta.property(i).notifySignal().name(), meta.property(i).name() + QByteArray("Changed"));
    }

    void track1_isRead_whenTrackIdIsUnset()
    {
        TestSite site;
        QVERIFY(site.login(describeTracks({describeTrack(1), describeTrack(2)})));
        QmlTrack track;
        view(track);
        QCOMPARE(track.name(), u"Stream 1"_s);
        QVERIFY(track.isEnabled());
        track.setTrackId(2);
        QCOMPARE(track.name(), u"Stream 2"_s);
        track.setTrackId(3);
        QCOMPARE(track.name(), QString());
    }

    void type_isText_data()
    {
        QTest::addColumn<int>("flag");
        QTest::addColumn<QString>("text");
        QTest::newRow("1") << 1 << u"Track 1"_s;
        QTest::newRow("2") << 2 << u"Track 2"_s;
        QTest::newRow("4") << 4 << u"Track 3"_s;
        QTest::newRow("8") << 8 << u"Metadata"_s;
        QTest::newRow("16") << 16 << u"Events"_s;
        QTest::newRow("32") << 32 << u"VMD"_s;
        QTest::newRow("64") << 64 << u"Audio"_s;
        QTest::newRow("128") << 128 << u"Talkback"_s;
        QTest::newRow("none") << 0 << QString();
        QTest::newRow("two") << 3 << QString();
        QTest::newRow("past") << 256 << QString();
    }
    void type_isText()
    {
        QFETCH(int, flag);
        TestSite site;
        QVERIFY(site.login(describeTracks({describeTrack(1, static_cast<TrackType::Flag>(flag))})));
        QmlTrack track;
        view(track);
        QTEST(track.type(), "text");
    }

    void setId_emitsOnlyItsSignal_whenItChanges()
    {
        QmlTrack track;
        SignalOrder order(&track);
        view(track);
        track.setTrackId(2);
        QCOMPARE(order.take(), (QStringList{u"serverGroupIdChanged"_s, u"serverIdChanged"_s, u"channelIdChanged"_s,
                                            u"trackIdChanged"_s}));
        view(track);
        track.setTrackId(2);
        QCOMPARE(order.take(), QStringList());
    }

    void read_emitsUpdateOnce_whenItFindsTheTrack()
    {
        TestSite site;
        QVERIFY(site.login(describeTracks({describeTrack(1)})));
        QmlTrack track;
        view(track);
        SignalOrder order(&track);
        QCOMPARE(track.type(), u"Track 1"_s);
        QCOMPARE(order.take(), updateSignals);
        QVERIFY(track.isEnabled());
        QCOMPARE(order.take(), QStringList());
    }

    void update_isASlot_andEmitsAll()
    {
        QmlTrack track;
        SignalOrder order(&track);
        QVERIFY(QMetaObject::invokeMethod(&track, "update"));
        QCOMPARE(order.take(), updateSignals);
    }

    void trackGoes_emitsUpdateOnce_andFallbacksAreRead()
    {
        TestSite site;
        QVERIFY(site.login(describeTracks({describeTrack(1), describeTrack(2)})));
        QmlTrack track;
        view(track);
        QCOMPARE(track.name(), u"Stream 1"_s);
        SignalOrder order(&track);
        site.describe(describeTracks({describeTrack(2)}));
        TestSite::deleteLeft();
        QCOMPARE(order.take(), updateSignals);
        QCOMPARE(track.name(), QString());
    }

    void read_isSafe_whenAHandlerDeletesTheView()
    {
        TestSite site;
        QVERIFY(site.login(describeTracks({describeTrack(1)})));
        auto *track = new QmlTrack;
        view(*track);
        const QPointer<QmlTrack> alive = track;
        connect(track, &QmlTrack::nameChanged, this, [track] { delete track; });
        QCOMPARE(track->name(), u"Stream 1"_s);
        QVERIFY(!alive);
    }

    void lifetime_isTraced()
    {
        LogLines lines;
        auto *track = new QmlTrack;
        QVERIFY(lines.takeOnly("orrin::QmlTrack::QmlTrack", track));
        const void *address = track;
        delete track;
        QVERIFY(lines.takeOnly("orrin::QmlTrack::~QmlTrack", address));
    }
};

} // namespace orrin

QTEST_GUILESS_MAIN(orrin::TestQmlTrack)
#include "tst_qmltrack.moc"
