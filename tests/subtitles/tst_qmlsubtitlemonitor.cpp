// SPDX-License-Identifier: GPL-3.0-or-later
#include "subtitlestream.h"

#include "support/fakestreamprovider.h"
#include "support/qmlsubtitlemonitor.h"
#include "video/qmlrendering.h"

#include <QElapsedTimer>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QTest>
#include <QTimer>

using namespace orrin;

// Referenced so that the module is linked.
extern void qml_register_types_orrinsdkqml();
static void (*const volatile registrar)() = &qml_register_types_orrinsdkqml;

namespace {

/*! Notes the addresses that it is asked for; the streams are those of a test. */
class AskedProvider : public FakeStreamProvider
{
public:
    QPointer<AbstractStreamProcessor> getStreamProcessor(unsigned serverGroupId, unsigned serverId,
                                                         unsigned channelId, RequestId streamId) override
    {
        calls.append(QStringLiteral("get %1 %2 %3 %4")
                         .arg(serverGroupId)
                         .arg(serverId)
                         .arg(channelId)
                         .arg(streamId.value));
        for (FakeStreamProcessor *stream : std::as_const(streams)) {
            if (stream->requestId() == streamId)
                return stream;
        }
        return nullptr;
    }

    QList<FakeStreamProcessor *> streams;
};

class TestMonitor : public QmlSubtitleMonitor
{
public:
    explicit TestMonitor(QmlAbstractStreamProvider *provider) : QmlSubtitleMonitor(provider, nullptr) {}

    void setAddress(quint16 stream)
    {
        setServerGroupId(1);
        setServerId(2);
        setChannelId(3);
        setStreamId(RequestId{stream});
    }
};

VideoFrame frameOf(FakeStreamProcessor &stream, qint64 timeMs = SubtitleStream::CapturedMs,
                   QSize size = QSize(8, 6))
{
    Image image = makeFrame(size, Yuv{1}).image();
    image.setTime(dateTimeToTime300(QDateTime::fromMSecsSinceEpoch(timeMs)));
    return VideoFrame(image, 1, stream.id);
}

/*! Lets the timer of a monitor without pause run out. */
void letPass()
{
    QElapsedTimer timer;
    timer.start();
    bool passed = false;
    QTimer::singleShot(2, qApp, [&passed] { passed = true; });
    while (!passed && timer.elapsed() < 5000)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
}

} // namespace

class tst_QmlSubtitleMonitor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QVERIFY(registrar);
        m_provider = std::make_unique<AskedProvider>();
        m_stream = std::make_unique<FakeStreamProcessor>(4);
        m_provider->streams = {m_stream.get()};
        m_stream->rendering()->setVideoFrame(frameOf(*m_stream));
    }

    void properties_haveTheirDefaults()
    {
        const TestMonitor monitor(m_provider.get());
        QCOMPARE(monitor.subtitle(), QString());
        QCOMPARE(monitor.subtitleTemplate(), QString());
        QCOMPARE(monitor.updateMs(), 0);
        QCOMPARE(monitor.serverGroupId(), -1);
        QCOMPARE(monitor.serverId(), -1);
        QCOMPARE(monitor.channelId(), -1);
        QCOMPARE(monitor.streamId(), RequestId{0});
    }

    void element_hasItsProperties_inQml()
    {
        QQmlEngine engine;
        QQmlComponent component(&engine);
        component.setData("import QtQml\nimport orrinsdkqml 254.0\nSubtitleMonitor { subtitleTemplate: "
                          "\"<Width>\"; updateMs: 40; serverGroupId: 1\n"
                          "serverId: 2; channelId: 3\n Component.onCompleted: update() }",
                          QUrl());
        const std::unique_ptr<QObject> object(component.create());
        QVERIFY2(object, qPrintable(component.errorString()));
        QVERIFY(qobject_cast<QmlSubtitleMonitor *>(object.get()));
        QCOMPARE(object->property("updateMs").toInt(), 40);
        const QMetaObject *meta = object->metaObject();
        QCOMPARE(meta->property(meta->indexOfProperty("streamId")).metaType(),
                 QMetaType::fromType<RequestId>());
        QVERIFY(!meta->property(meta->indexOfProperty("subtitle")).isWritable());
    }

    void setters_signalChangesAlone()
    {
        TestMonitor monitor(m_provider.get());
        QSignalSpy text(&monitor, &QmlSubtitleMonitor::subtitleTemplateChanged);
        QSignalSpy pause(&monitor, &QmlSubtitleMonitor::updateMsChanged);
        QSignalSpy group(&monitor, &QmlSubtitleMonitor::serverGroupIdChanged);
        QSignalSpy server(&monitor, &QmlSubtitleMonitor::serverIdChanged);
        QSignalSpy channel(&monitor, &QmlSubtitleMonitor::channelIdChanged);
        QSignalSpy stream(&monitor, &QmlSubtitleMonitor::streamIdChanged);
        for (int i = 0; i < 2; ++i) {
            monitor.setSubtitleTemplate(QStringLiteral("a"));
            monitor.setUpdateMs(5);
            monitor.setAddress(9);
        }
        for (const QSignalSpy *spy : {&text, &pause, &group, &server, &channel, &stream})
            QCOMPARE(spy->count(), 1);
    }

    void subtitle_followsTemplateAndFrame()
    {
        TestMonitor monitor(m_provider.get());
        monitor.setAddress(4);
        letPass();
        QSignalSpy changed(&monitor, &QmlSubtitleMonitor::subtitleChanged);
        monitor.setSubtitleTemplate(QStringLiteral("<Width>"));
        QCOMPARE(monitor.subtitle(), QStringLiteral("8"));
        QCOMPARE(changed.count(), 1);
        letPass();
        m_stream->rendering()->setVideoFrame(frameOf(*m_stream, SubtitleStream::CapturedMs, QSize(16, 12)));
        QCOMPARE(changed.count(), 1); // nothing but update() looks at frames
        monitor.update();
        QCOMPARE(monitor.subtitle(), QStringLiteral("16"));
        QCOMPARE(changed.count(), 2);
    }

    void subtitle_signalsBeforeItsCause()
    {
        TestMonitor monitor(m_provider.get());
        monitor.setAddress(4);
        letPass();
        QStringList order;
        connect(&monitor, &QmlSubtitleMonitor::subtitleChanged, this,
                [&] { order.append(QStringLiteral("subtitle")); });
        connect(&monitor, &QmlSubtitleMonitor::subtitleTemplateChanged, this,
                [&] { order.append(QStringLiteral("template")); });
        monitor.setSubtitleTemplate(QStringLiteral("x"));
        QCOMPARE(order, QStringList({QStringLiteral("subtitle"), QStringLiteral("template")}));
    }

    void subtitle_isThatOfAnEmptyTemplate_whenNothingIsOn()
    {
        TestMonitor monitor(m_provider.get());
        monitor.setSubtitleTemplate(QStringLiteral("x"));
        letPass();
        monitor.setAddress(4);
        letPass();
        monitor.update();
        QCOMPARE(monitor.subtitle(), QStringLiteral("x"));
        letPass();
        QSignalSpy changed(&monitor, &QmlSubtitleMonitor::subtitleChanged);
        monitor.setSubtitleTemplate(QString());
        QCOMPARE(monitor.subtitle(), QString());
        QCOMPARE(changed.count(), 1);
    }

    void update_signalsAlso_whenTextIsTheSame()
    {
        TestMonitor monitor(m_provider.get());
        monitor.setSubtitleTemplate(QStringLiteral("x"));
        monitor.setAddress(4);
        letPass();
        monitor.update();
        letPass();
        QSignalSpy changed(&monitor, &QmlSubtitleMonitor::subtitleChanged);
        monitor.update();
        QCOMPARE(changed.count(), 1);
    }

    void update_refreshesOnce_inABurst()
    {
        TestMonitor monitor(m_provider.get());
        monitor.setSubtitleTemplate(QStringLiteral("<Width>"));
        monitor.setAddress(4);
        monitor.setUpdateMs(1000);
        letPass();
        QSignalSpy changed(&monitor, &QmlSubtitleMonitor::subtitleChanged);
        for (int i = 0; i < 20; ++i) {
            monitor.update();
            letPass();
        }
        QCOMPARE(changed.count(), 1);
        // A dropped call is not made up for.
        QVERIFY(!changed.wait(1200));
        monitor.update();
        QCOMPARE(changed.count(), 2);
    }

    void update_refreshesOnce_inOnePassOfTheEventLoop()
    {
        TestMonitor monitor(m_provider.get());
        monitor.setAddress(4);
        letPass();
        QSignalSpy changed(&monitor, &QmlSubtitleMonitor::subtitleChanged);
        monitor.update();
        monitor.update();
        QCOMPARE(changed.count(), 1);
        letPass();
        monitor.update();
        QCOMPARE(changed.count(), 2);
    }

    void updateMs_leavesARunningPauseAlone()
    {
        TestMonitor monitor(m_provider.get());
        monitor.setAddress(4);
        letPass();
        monitor.setUpdateMs(60'000);
        QSignalSpy changed(&monitor, &QmlSubtitleMonitor::subtitleChanged);
        monitor.update();
        monitor.setUpdateMs(0);
        letPass();
        monitor.update();
        QCOMPARE(changed.count(), 1);
    }

    void updateMs_belowZeroCountsAsNone()
    {
        TestMonitor monitor(m_provider.get());
        monitor.setUpdateMs(-5);
        QCOMPARE(monitor.updateMs(), -5);
        monitor.setAddress(4);
        letPass();
        QSignalSpy changed(&monitor, &QmlSubtitleMonitor::subtitleChanged);
        monitor.update();
        monitor.update();
        QCOMPARE(changed.count(), 1);
    }

    void ids_leadToNoLookUp_whenOneIsNegative()
    {
        for (int missing = 0; missing < 3; ++missing) {
            TestMonitor monitor(m_provider.get());
            monitor.setStreamId(RequestId{4});
            if (missing != 0)
                monitor.setServerGroupId(1);
            if (missing != 1)
                monitor.setServerId(2);
            if (missing != 2)
                monitor.setChannelId(3);
            letPass();
            monitor.update();
            QVERIFY(m_provider->calls.isEmpty());
        }
    }

    void lookUp_takesTheWholeAddress_once()
    {
        TestMonitor monitor(m_provider.get());
        monitor.setAddress(4);
        letPass();
        m_provider->calls.clear();
        monitor.update();
        letPass();
        monitor.update();
        QCOMPARE(m_provider->calls, QStringList(QStringLiteral("get 1 2 3 4")));
    }

    void lookUp_isRepeated_whileThereIsNoStream()
    {
        m_provider->streams.clear();
        TestMonitor monitor(m_provider.get());
        QSignalSpy changed(&monitor, &QmlSubtitleMonitor::subtitleChanged);
        monitor.setAddress(4);
        letPass();
        monitor.update();
        QCOMPARE(changed.count(), 0);
        m_provider->streams = {m_stream.get()};
        letPass();
        monitor.update();
        QCOMPARE(changed.count(), 1);
    }

    void stream_isLookedForAgain_whenItEnds()
    {
        TestMonitor monitor(m_provider.get());
        monitor.setSubtitleTemplate(QStringLiteral("<Width>"));
        monitor.setAddress(4);
        letPass();
        monitor.update();
        QCOMPARE(monitor.subtitle(), QStringLiteral("8"));
        m_stream.reset();
        m_provider->streams.clear();
        letPass();
        monitor.update();
        QCOMPARE(monitor.subtitle(), QStringLiteral("8"));
        FakeStreamProcessor next(4);
        next.rendering()->setVideoFrame(frameOf(next, SubtitleStream::CapturedMs, QSize(16, 12)));
        m_provider->streams = {&next};
        letPass();
        monitor.update();
        QCOMPARE(monitor.subtitle(), QStringLiteral("16"));
        m_provider->streams.clear();
    }

    void stream_isNotKeptAlive()
    {
        TestMonitor monitor(m_provider.get());
        monitor.setAddress(4);
        letPass();
        monitor.update();
        const QPointer<FakeStreamProcessor> watched = m_stream.get();
        m_stream.reset();
        QVERIFY(!watched);
        m_provider->streams.clear();
    }

    void streamId_bindsToTheNewStream_atTheNextRefreshLetThrough()
    {
        FakeStreamProcessor other(5);
        other.rendering()->setVideoFrame(frameOf(other, SubtitleStream::CapturedMs, QSize(16, 12)));
        m_provider->streams.append(&other);
        TestMonitor monitor(m_provider.get());
        monitor.setSubtitleTemplate(QStringLiteral("<Width>"));
        monitor.setAddress(4);
        letPass();
        monitor.update();
        QCOMPARE(monitor.subtitle(), QStringLiteral("8"));
        monitor.setStreamId(RequestId{5}); // the pause of the call before still runs
        QCOMPARE(monitor.subtitle(), QStringLiteral("8"));
        letPass();
        monitor.update();
        QCOMPARE(monitor.subtitle(), QStringLiteral("16"));
        m_provider->streams = {m_stream.get()};
    }

    void subtitle_keepsItsText_whenFrameIsInvalid()
    {
        TestMonitor monitor(m_provider.get());
        monitor.setSubtitleTemplate(QStringLiteral("<Width>"));
        monitor.setAddress(4);
        letPass();
        monitor.update();
        QCOMPARE(monitor.subtitle(), QStringLiteral("8"));
        FakeStreamProcessor empty(5);
        m_provider->streams.append(&empty);
        letPass();
        QSignalSpy changed(&monitor, &QmlSubtitleMonitor::subtitleChanged);
        monitor.setStreamId(RequestId{5});
        QCOMPARE(monitor.subtitle(), QStringLiteral("8"));
        QCOMPARE(changed.count(), 0);
        m_provider->streams = {m_stream.get()};
    }

    void subtitle_keepsItsText_whenStreamHasNoDisplay()
    {
        m_stream->outputList.clear();
        TestMonitor monitor(m_provider.get());
        QSignalSpy changed(&monitor, &QmlSubtitleMonitor::subtitleChanged);
        monitor.setAddress(4);
        letPass();
        monitor.update();
        QCOMPARE(changed.count(), 0);
    }

    void playbackState_refreshes_whenItChanges()
    {
        TestMonitor monitor(m_provider.get());
        monitor.setSubtitleTemplate(QStringLiteral("<Live><FwdRew><SeekSpeedAbs>"));
        monitor.setAddress(4);
        letPass();
        monitor.update();
        letPass();
        m_stream->state->setMode(PlayMode::Live);
        QCOMPARE(monitor.subtitle(), QStringLiteral("LIVE"));
        letPass();
        m_stream->state->setMode(PlayMode::Rewind);
        letPass();
        m_stream->state->setSeekSpeed(-16);
        QCOMPARE(monitor.subtitle(), QStringLiteral("REWIND16"));
    }

    void offset_isTheConnections()
    {
        test::ScriptedConnection connection;
        connection.clockOffsetMs = 3'600'000;
        const auto ago = [this](Connection *used) {
            m_stream->setFakeConnection(used);
            m_stream->rendering()->setVideoFrame(frameOf(*m_stream, QDateTime::currentMSecsSinceEpoch()));
            TestMonitor monitor(m_provider.get());
            monitor.setSubtitleTemplate(QStringLiteral("<TimeAgo>"));
            monitor.setAddress(4);
            letPass();
            monitor.update();
            return monitor.subtitle();
        };
        QVERIFY2(ago(&connection).startsWith(QStringLiteral("01:00:0")), qPrintable(ago(&connection)));
        QCOMPARE(ago(nullptr), QString());
        m_stream->setFakeConnection(nullptr);
    }

    void serverConnected_triesAgain()
    {
        SubtitleStream site;
        TestMonitor monitor(m_provider.get());
        m_provider->streams.clear();
        monitor.setAddress(4);
        letPass();
        m_provider->streams = {m_stream.get()};
        QSignalSpy changed(&monitor, &QmlSubtitleMonitor::subtitleChanged);
        Q_EMIT OrrinSDK::instance()->connectionManager()->serverConnected(site.server);
        QCOMPARE(changed.count(), 1);
    }

    void monitor_mayBeDeleted_byWhoListens()
    {
        auto *monitor = new TestMonitor(m_provider.get());
        monitor->setAddress(4);
        letPass();
        const QPointer<TestMonitor> watched = monitor;
        connect(monitor, &QmlSubtitleMonitor::subtitleChanged, this, [monitor] { delete monitor; });
        monitor->setSubtitleTemplate(QStringLiteral("x"));
        QVERIFY(!watched);
    }

private:
    std::unique_ptr<AskedProvider> m_provider;
    std::unique_ptr<FakeStreamProcessor> m_stream;
};

QTEST_MAIN(tst_QmlSubtitleMonitor)
#include "tst_qmlsubtitlemonitor.moc"
