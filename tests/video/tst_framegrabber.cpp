// SPDX-License-Identifier: GPL-3.0-or-later
#include "video/framegrabber.h"
#include "video/framegrabber_p.h"

#include "support/fakestreamprovider.h"
#include "support/testsite.h"

#include <contract/core/displayoutput.h>
#include <contract/core/playbackerror.h>
#include <contract/core/sspermission.h>

#include <QTest>

using namespace orrin;

namespace {

/*! Notes the hooks of a grabber, between the calls of its provider and its control. */
class NotingPrivate : public FrameGrabberPrivate
{
public:
    NotingPrivate(FrameGrabber *q, FakeStreamProvider *provider)
        : FrameGrabberPrivate(q, provider), calls(provider->calls)
    {
    }

    void streamProcessorCreated() override
    {
        calls.append(QStringLiteral("hook created"));
        const auto *processor = static_cast<FakeStreamProcessor *>(streamProcessor.data());
        calls.append(processor->control ? processor->control->calls : QStringList());
    }
    void serverGroupIdChanged() override { calls.append(QStringLiteral("hook group %1").arg(serverGroupId)); }
    void serverIdChanged() override { calls.append(QStringLiteral("hook server %1").arg(serverId)); }
    void channelIdChanged() override { calls.append(QStringLiteral("hook channel %1").arg(channelId)); }

    QStringList &calls;
};

class NotingGrabber : public FrameGrabber
{
public:
    explicit NotingGrabber(FakeStreamProvider *provider)
        : FrameGrabber(
              PrivatePointer(new NotingPrivate(this, provider), [](FrameGrabberPrivate *d) { delete d; }))
    {
    }
};

QStringList list(const char *calls)
{
    return QString::fromLatin1(calls).split(QStringLiteral(", "));
}

void setAddress(FrameGrabber &grabber, int group, int server, int channel)
{
    grabber.setServerGroupId(group);
    grabber.setServerId(server);
    grabber.setChannelId(channel);
}

} // namespace

class tst_FrameGrabber : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newObject_hasNothing()
    {
        FakeStreamProvider provider;
        FrameGrabber grabber(&provider);
        QCOMPARE(grabber.serverGroupId(), -1);
        QCOMPARE(grabber.serverId(), -1);
        QCOMPARE(grabber.channelId(), -1);
        QCOMPARE(grabber.syncContextId(), -1);
        QCOMPARE(grabber.streamId(), RequestId());
        QCOMPARE(grabber.lastError(), QString());
        QVERIFY(!grabber.isActive());
        QVERIFY(!grabber.isUserPermitted());
        grabber.setActivated(true);
        QVERIFY(!grabber.isActive());
    }

    void processor_isMadeOnce_whenTheLastIdBecomesValid()
    {
        FakeStreamProvider provider;
        NotingGrabber grabber(&provider);
        grabber.setSyncContextId(9);
        setAddress(grabber, 3, 2, 1);
        QCOMPARE(provider.calls,
                 list("hook group 3, hook server 2, create 3 2 1 9, hook created, hook channel 1"));
        QVERIFY(provider.last);
        QCOMPARE(provider.last->control->calls, list("live 0"));
        QCOMPARE(grabber.streamId(), RequestId{1});
        QVERIFY(grabber.isActive());
    }

    void processor_isNotMade_whenAnIdIsBelow1_data()
    {
        QTest::addColumn<int>("group");
        QTest::addColumn<int>("server");
        QTest::addColumn<int>("channel");
        QTest::newRow("channel 0") << 1 << 1 << 0;
        QTest::newRow("server 0") << 1 << 0 << 1;
        QTest::newRow("group 0") << 0 << 1 << 1;
        QTest::newRow("channel -1") << 1 << 1 << -1;
    }

    void processor_isNotMade_whenAnIdIsBelow1()
    {
        QFETCH(int, group);
        QFETCH(int, server);
        QFETCH(int, channel);
        FakeStreamProvider provider;
        FrameGrabber grabber(&provider);
        setAddress(grabber, group, server, channel);
        QVERIFY(provider.calls.isEmpty());
        QCOMPARE(grabber.streamId(), RequestId());
    }

    void processor_endsAtOnceAndIsReplaced_whenAnIdChanges()
    {
        FakeStreamProvider provider;
        NotingGrabber grabber(&provider);
        setAddress(grabber, 1, 1, 1);
        const QPointer<FakeStreamProcessor> first = provider.last;
        provider.calls.clear();
        grabber.setChannelId(2);
        QVERIFY(!first);
        // The entry goes under the old address, after the processor has ended.
        QCOMPARE(provider.calls, list("remove 1 1 1 1, create 1 1 2 -1, hook created, hook channel 2"));
        QCOMPARE(grabber.streamId(), RequestId{2});

        provider.calls.clear();
        grabber.setServerId(-1);
        QCOMPARE(provider.calls, list("remove 1 1 2 2, hook server -1"));
        QCOMPARE(grabber.streamId(), RequestId());
        provider.calls.clear();
        grabber.setServerGroupId(5);
        QCOMPARE(provider.calls, list("hook group 5"));
    }

    void setters_doNothing_whenTheValueStays()
    {
        FakeStreamProvider provider;
        NotingGrabber grabber(&provider);
        setAddress(grabber, 1, 1, 1);
        provider.calls.clear();
        setAddress(grabber, 1, 1, 1);
        QVERIFY(provider.calls.isEmpty());
        QVERIFY(provider.last);
    }

    void syncContext_countsForTheNextProcessor()
    {
        FakeStreamProvider provider;
        FrameGrabber grabber(&provider);
        setAddress(grabber, 1, 1, 1);
        provider.calls.clear();
        grabber.setSyncContextId(4);
        QVERIFY(provider.calls.isEmpty());
        grabber.setChannelId(2);
        QVERIFY(provider.calls.contains(QStringLiteral("create 1 1 2 4")));
    }

    void processor_staysWithItsOtherOwner_whenTheGrabberDropsIt()
    {
        FakeStreamProvider provider;
        FrameGrabber grabber(&provider);
        setAddress(grabber, 1, 1, 1);
        const QPointer<FakeStreamProcessor> processor = provider.last;
        const QSharedPointer<AbstractStreamProcessor> other = provider.lastStrong.toStrongRef();
        QVERIFY(other);
        provider.calls.clear();
        grabber.setChannelId(-1);
        QVERIFY(processor);
        QCOMPARE(provider.calls, list("remove 1 1 1 1 alive"));
        QCOMPARE(grabber.streamId(), RequestId());
    }

    void destructor_endsTheProcessor()
    {
        FakeStreamProvider provider;
        {
            FrameGrabber grabber(&provider);
            setAddress(grabber, 1, 2, 3);
            provider.calls.clear();
        }
        QVERIFY(!provider.last);
        QCOMPARE(provider.calls, list("remove 1 2 3 1"));
    }

    void refusal_leavesTheGrabberEmpty()
    {
        FakeStreamProvider provider;
        provider.refuses = true;
        NotingGrabber grabber(&provider);
        setAddress(grabber, 1, 1, 1);
        QCOMPARE(provider.calls, list("hook group 1, hook server 1, create 1 1 1 -1, hook channel 1"));
        QCOMPARE(grabber.streamId(), RequestId());
        provider.calls.clear();
        grabber.setChannelId(2);
        QCOMPARE(provider.calls, list("create 1 1 2 -1, hook channel 2"));
    }

    void hookAndLive_areLeftOut_whenThereIsNoRendering_data()
    {
        QTest::addColumn<int>("missing");
        QTest::newRow("output") << 0;
        QTest::newRow("presenter") << 1;
        QTest::newRow("display") << 2;
    }

    void hookAndLive_areLeftOut_whenThereIsNoRendering()
    {
        QFETCH(int, missing);
        FakeStreamProvider provider;
        provider.prepare = [missing](FakeStreamProcessor &processor) {
            if (missing == 0)
                processor.outputList.clear();
            else if (missing == 1)
                processor.outputList = {QSharedPointer<SPAbstractOutput>(new DisplayOutput(nullptr))};
            else
                processor.presenter->list.clear();
        };
        NotingGrabber grabber(&provider);
        setAddress(grabber, 1, 1, 1);
        QVERIFY(!provider.calls.contains(QStringLiteral("hook created")));
        QVERIFY(provider.last->control->calls.isEmpty());
        QCOMPARE(grabber.streamId(), RequestId{1}); // the processor is there all the same
        QCOMPARE(grabber.lastError(), QString());
    }

    void live_isLeftOut_whenThereIsNoControl()
    {
        FakeStreamProvider provider;
        provider.prepare = [](FakeStreamProcessor &processor) { processor.control.reset(); };
        NotingGrabber grabber(&provider);
        setAddress(grabber, 1, 1, 1);
        QVERIFY(provider.calls.contains(QStringLiteral("hook created")));
    }

    void setActivated_startsAndStopsTheProcessor_andKeepsIt()
    {
        FakeStreamProvider provider;
        FrameGrabber grabber(&provider);
        setAddress(grabber, 1, 1, 1);
        provider.last->calls.clear();
        grabber.setActivated(false);
        QVERIFY(!grabber.isActive());
        grabber.setActivated(true);
        QVERIFY(grabber.isActive());
        QCOMPARE(provider.last->calls, list("stop, start"));
        QCOMPARE(provider.count, 1);
    }

    void lastError_givesTheNewestOnce()
    {
        FakeStreamProvider provider;
        FrameGrabber grabber(&provider);
        setAddress(grabber, 1, 1, 1);
        const PlaybackError newest(5, QStringLiteral("newest"));
        provider.last->rendering()->setError(PlaybackError(5, QStringLiteral("older")), 0);
        provider.last->rendering()->setError(newest, 0);
        QCOMPARE(grabber.lastError(), newest.formattedHTMLString());
        QCOMPARE(grabber.lastError(), QString());
    }

    void isUserPermitted_asksForRight24_data()
    {
        QTest::addColumn<QSet<int>>("rights");
        QTest::addColumn<bool>("permitted");
        QTest::newRow("none") << QSet<int>() << false;
        QTest::newRow("others") << QSet<int>({16, 17, 23, 25}) << false;
        QTest::newRow("24") << QSet<int>({24}) << true;
    }

    void isUserPermitted_asksForRight24()
    {
        QFETCH(QSet<int>, rights);
        QFETCH(bool, permitted);
        const TestSite site(rights);
        QVERIFY(site.server());
        FakeStreamProvider provider;
        provider.prepare = [&site](FakeStreamProcessor &processor) {
            processor.channelPointer = site.channel(1);
        };
        FrameGrabber grabber(&provider);
        QVERIFY(!grabber.isUserPermitted());
        setAddress(grabber, 1, 1, 1);
        QCOMPARE(grabber.isUserPermitted(), permitted);
        // Without a channel nobody is permitted.
        provider.last->channelPointer = nullptr;
        QVERIFY(!grabber.isUserPermitted());
    }

    void privateObject_isCopied()
    {
        FakeStreamProvider provider;
        FrameGrabberPrivate original(nullptr, &provider);
        original.serverGroupId = 7;
        original.frameTime = 8;
        FrameGrabberPrivate copy(original);
        QCOMPARE(copy.serverGroupId, 7);
        QCOMPARE(copy.frameTime, 8);
        original.serverGroupId = 9;
        copy = original;
        QCOMPARE(copy.serverGroupId, 9);
        QCOMPARE(copy.provider, &provider);
    }
};

QTEST_GUILESS_MAIN(tst_FrameGrabber)
#include "tst_framegrabber.moc"
