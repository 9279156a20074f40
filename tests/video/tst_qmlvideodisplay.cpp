// SPDX-License-Identifier: GPL-3.0-or-later
#include "video/qmlrendering.h"
#include "video/qmlvideodisplay.h"

#include "support/testframes.h"
#include "support/testsite.h"
#include "support/testvideodisplay.h"

#include <contract/core/playbackerror.h>

#include <QJSValue>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QTest>
#include <QThread>

using namespace orrin;

namespace {

/*! The names of the signals of an item's interface, in the order in which they come. */
class SignalLog : public QObject
{
    Q_OBJECT
public:
    explicit SignalLog(QmlVideoDisplay *item)
    {
        const QMetaObject &meta = QmlVideoDisplay::staticMetaObject;
        const QMetaMethod slot = staticMetaObject.method(staticMetaObject.indexOfSlot("note()"));
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
            if (meta.method(i).methodType() == QMetaMethod::Signal)
                connect(item, meta.method(i), this, slot);
        }
    }

    QStringList take() { return std::exchange(names, {}); }

public Q_SLOTS:
    void note()
    {
        const QMetaMethod method = sender()->metaObject()->method(senderSignalIndex());
        names.append(QString::fromLatin1(method.name()));
    }

private:
    QStringList names;
};

QStringList list(const char *names)
{
    return QString::fromLatin1(names).split(QStringLiteral(", "));
}

const QTimeZone helsinki("Europe/Helsinki");
const QDateTime moment(QDate(2026, 3, 5), QTime(9, 7, 3), helsinki);

} // namespace

class tst_QmlVideoDisplay : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newItem_hasDefaults()
    {
        TestVideoDisplay item(&provider);
        QCOMPARE(item.frameWidth(), 100.0);
        QCOMPARE(item.frameHeight(), 100.0);
        QCOMPARE(item.serverGroupId(), -1);
        QCOMPARE(item.serverId(), -1);
        QCOMPARE(item.channelId(), -1);
        QCOMPARE(item.streamId(), RequestId());
        QVERIFY(!item.isActive());
        QCOMPARE(item.lastError(), QString());
        QVERIFY(item.preserveAspectRatio());
        QVERIFY(!item.isMessageVisible());
        QVERIFY(!item.isBusySpinnerVisible());
        QVERIFY(!item.currentFrame());
        QVERIFY(item.flags().testFlag(QQuickItem::ItemHasContents));
        QCOMPARE(item.getBeginning(), 0);
        QCOMPARE(item.getEnd(), 0);
    }

    void interface_isComplete()
    {
        const QMetaObject &meta = QmlVideoDisplay::staticMetaObject;
        QStringList properties;
        for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
            const QMetaProperty property = meta.property(i);
            properties.append(QStringLiteral("%1 %2 %3 %4")
                                  .arg(QLatin1StringView(property.name()),
                                       QLatin1StringView(property.typeName()),
                                       property.isWritable() ? QStringLiteral("rw") : QStringLiteral("r"),
                                       QString::fromLatin1(property.notifySignal().methodSignature())));
        }
        QCOMPARE(properties,
                 list("frameWidth double r frameWidthChanged(), frameHeight double r frameHeightChanged(), "
                      "serverGroupId int rw serverGroupIdChanged(), serverId int rw serverIdChanged(), "
                      "channelId int rw channelIdChanged(), streamId orrin::RequestId r streamIdChanged(), "
                      "activated bool rw activatedChanged(bool), error QString r errorReceived(), "
                      "frameDateTimeUTC QDateTime r frameDateTimeUTCChanged(), "
                      "frameDateTimeServerTz QString r frameDateTimeServerTzChanged(), "
                      "frameTimeZone QTimeZone r frameTimeZoneChanged(), frameTimeMs qlonglong r "
                      "frameTimeMsChanged(), "
                      "preserveAspectRatio bool rw preserveAspectRatioChanged(bool), "
                      "messageVisible bool rw messageVisibleChanged(bool), "
                      "busySpinnerVisible bool r busySpinnerVisibleChanged()"));
        for (const char *signature :
             {"streamProcessorCreated()", "privateKeyRequired()", "beyondEnd()", "showBusySpinner(bool)",
              "currentFrameChanged()", "zoomFactorChanged(double)", "zoomRectChanged()"})
            QVERIFY2(meta.indexOfSignal(signature) >= 0, signature);
        for (const char *signature :
             {"resetZoom()", "adjustZoomCenter(double,double)", "addOffsetPixels(double,double)",
              "zoom(double,double,double)", "getBeginning()", "getEnd()"})
            QVERIFY2(meta.indexOfMethod(signature) >= 0, signature);
        for (const char *signature : {"processFrame()", "handleShowBusySpinner(bool)"}) {
            const int index = meta.indexOfSlot(signature);
            QVERIFY2(index >= 0, signature);
            QCOMPARE(meta.method(index).access(), QMetaMethod::Private);
        }
    }

    void ids_emitStreamIdThenTheirOwnSignal()
    {
        TestVideoDisplay item(&provider);
        SignalLog log(&item);
        item.setAddress(1, 2, 3);
        QCOMPARE(log.take(),
                 list("serverGroupIdChanged, serverIdChanged, streamIdChanged, channelIdChanged"));
        QCOMPARE(item.streamId(), RequestId{provider.count});
        QCOMPARE(provider.last->control->calls, list("live 0"));
        item.setServerId(4);
        QCOMPARE(log.take(), list("streamIdChanged, serverIdChanged"));
        item.setServerId(0);
        QCOMPARE(log.take(), list("serverIdChanged"));
        QCOMPARE(item.streamId(), RequestId());
    }

    void setVideoFrame_emitsInOrder()
    {
        TestVideoDisplay item(&provider);
        SignalLog log(&item);
        item.setVideoFrame(makeFrame(QSize(64, 48), Yuv{100}, dateTimeToTime300(moment), helsinki));
        QCOMPARE(log.take(),
                 list("frameWidthChanged, frameHeightChanged, currentFrameChanged, frameDateTimeUTCChanged, "
                      "frameDateTimeServerTzChanged, frameTimeZoneChanged"));
        QCOMPARE(item.frameWidth(), 64.0);
        QCOMPARE(item.frameHeight(), 48.0);
        QCOMPARE(item.frameDateTimeUTC(), moment.toUTC());
        QCOMPARE(item.frameDateTimeUTC().offsetFromUtc(), 0);
        QCOMPARE(item.frameDateTimeServerTz(), QStringLiteral("05.03.2026.09.07.03"));
        QCOMPARE(item.frameTimeZone(), helsinki);
        QCOMPARE(item.frameTimeMs(), moment.toMSecsSinceEpoch());

        // The same size and zone: both dates signal all the same.
        item.setVideoFrame(makeFrame(QSize(64, 48), Yuv{100}, dateTimeToTime300(moment), helsinki));
        QCOMPARE(log.take(),
                 list("currentFrameChanged, frameDateTimeUTCChanged, frameDateTimeServerTzChanged"));
        item.setVideoFrame(makeFrame(QSize(64, 50), Yuv{100}, dateTimeToTime300(moment), QTimeZone::utc()));
        QCOMPARE(log.take(), list("frameHeightChanged, currentFrameChanged, frameDateTimeUTCChanged, "
                                  "frameDateTimeServerTzChanged, frameTimeZoneChanged"));
    }

    void setVideoFrame_storesEachValueBeforeItsSignal()
    {
        TestVideoDisplay item(&provider);
        item.setSize(QSizeF(200, 200));
        int seen = 0;
        connect(&item, &QmlVideoDisplay::frameWidthChanged, this, [&] {
            QCOMPARE(item.frameWidth(), 64.0);
            QCOMPARE(item.frameHeight(), 100.0);
            QVERIFY(item.currentFrame());
            ++seen;
        });
        connect(&item, &QmlVideoDisplay::currentFrameChanged, this, [&] {
            // The geometry is that of the new frame, the times are still the old ones.
            QCOMPARE(item.zoomRect(), QRectF(0, 25, 200, 150));
            QCOMPARE(item.frameDateTimeUTC(), time300ToDateTimeUTC(0));
            ++seen;
        });
        item.setVideoFrame(makeFrame(QSize(64, 48), Yuv{100}, dateTimeToTime300(moment), helsinki));
        QCOMPARE(seen, 2);
    }

    void setVideoFrame_keepsACopyOfItsOwn()
    {
        TestVideoDisplay item(&provider);
        const VideoFrame frame = makeFrame(QSize(8, 8), Yuv{1});
        item.setVideoFrame(frame);
        const auto first = item.currentFrame();
        QVERIFY(first);
        QCOMPARE(first->bitsY(), frame.bitsY()); // shared pixels
        item.setVideoFrame(frame);
        QVERIFY(item.currentFrame() != first);
    }

    void streamFrames_reachTheItem()
    {
        TestVideoDisplay item(&provider);
        item.setAddress(1, 1, 1);
        QSignalSpy changed(&item, &QmlVideoDisplay::currentFrameChanged);
        provider.last->rendering()->setVideoFrame(makeFrame(QSize(32, 16), Yuv{50}));
        QCOMPARE(changed.count(), 1);
        QCOMPARE(item.frameWidth(), 32.0);
        // An invalid one never does.
        provider.last->rendering()->setVideoFrame(VideoFrame());
        QCOMPARE(changed.count(), 1);
    }

    void streamFrames_crossThreads()
    {
        TestVideoDisplay item(&provider);
        item.setAddress(1, 1, 1);
        QSignalSpy changed(&item, &QmlVideoDisplay::currentFrameChanged);
        QmlRendering *rendering = provider.last->rendering();
        const std::unique_ptr<QThread> thread(
            QThread::create([rendering] { rendering->setVideoFrame(makeFrame(QSize(32, 16), Yuv{50})); }));
        thread->start();
        QVERIFY(thread->wait(5000));
        QCOMPARE(changed.count(), 0);
        QTRY_COMPARE(changed.count(), 1);
    }

    void streamErrors_reachTheItem()
    {
        TestVideoDisplay item(&provider);
        item.setAddress(1, 1, 1);
        SignalLog log(&item);
        const PlaybackError key(2);
        provider.last->rendering()->setError(key, 0);
        QCOMPARE(log.take(), list("privateKeyRequired, errorReceived"));
        const PlaybackError end(8);
        provider.last->rendering()->setError(end, 0);
        QCOMPARE(log.take(), list("beyondEnd, errorReceived"));
        QCOMPARE(item.property("error").toString(), end.formattedHTMLString());
        QCOMPARE(item.property("error").toString(), QString());
    }

    void busyWheel_showsInTheProperty()
    {
        TestVideoDisplay item(&provider);
        item.setAddress(1, 1, 1);
        SignalLog log(&item);
        provider.last->rendering()->showBusySpinnerWheel();
        QVERIFY(item.isBusySpinnerVisible());
        provider.last->rendering()->clearBusySpinnerWheel();
        QVERIFY(!item.isBusySpinnerVisible());
        QCOMPARE(log.take(), list("busySpinnerVisibleChanged, busySpinnerVisibleChanged"));
    }

    void activated_startsAndStops()
    {
        TestVideoDisplay item(&provider);
        QSignalSpy changed(&item, &QmlVideoDisplay::activatedChanged);
        item.setActivated(false);
        QCOMPARE(changed.count(), 0);
        item.setAddress(1, 1, 1);
        QVERIFY(item.property("activated").toBool());
        item.setProperty("activated", true);
        QCOMPARE(changed.count(), 0);
        item.setProperty("activated", false);
        QVERIFY(!item.isActive());
        QVERIFY(!provider.last->isActive());
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.last().first().toBool(), false);
        item.setProperty("activated", true);
        QVERIFY(provider.last->isActive());
        QCOMPARE(changed.last().first().toBool(), true);
    }

    void messageVisible_emitsNothing()
    {
        TestVideoDisplay item(&provider);
        SignalLog log(&item);
        item.setProperty("messageVisible", true);
        QVERIFY(item.property("messageVisible").toBool());
        QCOMPARE(log.take(), QStringList());
    }

    void preserveAspectRatio_changesTheGeometry()
    {
        TestVideoDisplay item(&provider);
        item.setSize(QSizeF(200, 100));
        item.setVideoFrame(makeFrame(QSize(64, 64), Yuv{1}));
        QCOMPARE(item.zoomRect(), QRectF(50, 0, 100, 100));
        QSignalSpy changed(&item, &QmlVideoDisplay::preserveAspectRatioChanged);
        item.setPreserveAspectRatio(true);
        QCOMPARE(changed.count(), 0);
        item.setPreserveAspectRatio(false);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.first().first().toBool(), false);
        QCOMPARE(item.zoomRect(), QRectF(0, 0, 200, 100));
    }

    void zoomAndPan_changeTheGeometrySilently()
    {
        TestVideoDisplay item(&provider);
        item.setSize(QSizeF(200, 100));
        item.setVideoFrame(makeFrame(QSize(200, 100), Yuv{1}));
        SignalLog log(&item);
        item.zoom(2.0, -1.0, -1.0);
        QCOMPARE(item.zoomRect(), QRectF(0, 0, 400, 200));
        item.addOffsetPixels(-30, -20);
        QCOMPARE(item.zoomRect(), QRectF(-30, -20, 400, 200));
        // Fractions of half of the rectangle: 10 and 10 pixels.
        item.adjustZoomCenter(0.05, 0.1);
        QCOMPARE(item.zoomRect(), QRectF(-20, -10, 400, 200));
        item.resetZoomCenter();
        QCOMPARE(item.zoomRect(), QRectF(-100, -50, 400, 200));
        item.resetZoom();
        QCOMPARE(item.zoomRect(), QRectF(0, 0, 200, 100));
        QCOMPARE(log.take(), QStringList());
    }

    void geometryChange_resizesTheContainer()
    {
        TestVideoDisplay item(&provider);
        item.setVideoFrame(makeFrame(QSize(100, 100), Yuv{1}));
        QVERIFY(item.zoomRect().isNull());
        item.setSize(QSizeF(300, 300));
        QCOMPARE(item.zoomRect(), QRectF(0, 0, 300, 300));
        item.setHeight(150);
        QCOMPARE(item.zoomRect(), QRectF(75, 0, 150, 150));
    }

    void bounds_areThoseOfTheTrack()
    {
        TestVideoDisplay item(&provider);
        FakeConnection connection;
        connection.begin = dateTimeToTime300(moment);
        connection.end = dateTimeToTime300(moment.addSecs(3600));
        item.setAddress(1, 1, 5);
        provider.last->base = 0x10000;
        QCOMPARE(item.getBeginning(), 0);
        QCOMPARE(item.getEnd(), 0);
        provider.last->setFakeConnection(&connection);
        QCOMPARE(item.getBeginning(), moment.toMSecsSinceEpoch());
        QCOMPARE(item.getEnd(), moment.addSecs(3600).toMSecsSinceEpoch());
        QCOMPARE(connection.asked, QList<unsigned>({0x10005, 0x10005}));
    }

    void mask_isPainted_unlessTheUserHasRight24_data()
    {
        QTest::addColumn<QSet<int>>("rights");
        QTest::addColumn<bool>("painted");
        QTest::newRow("without") << QSet<int>({16, 17}) << true;
        QTest::newRow("with") << QSet<int>({24}) << false;
    }

    void mask_isPainted_unlessTheUserHasRight24()
    {
        QFETCH(QSet<int>, rights);
        QFETCH(bool, painted);
        const TestSite site(rights);
        QVERIFY(site.server());
        provider.prepare = [&site](FakeStreamProcessor &processor) {
            processor.channelPointer = site.channel(1);
        };
        TestVideoDisplay item(&provider);
        item.setAddress(1, 1, 1);
        provider.prepare = nullptr;
        Image header;
        header.setExtension(ImageHeaderExtension::PrivacyMask, "1;0,0 5000,0 5000,10000 0,10000");
        const VideoFrame frame = makeFrame(QSize(64, 64), [](int, int) { return Yuv{200}; }, header);
        provider.last->rendering()->setVideoFrame(frame);
        const std::uint8_t *luma = item.currentFrame()->bitsY();
        QCOMPARE(int(luma[32 * 64 + 48]), 200);
        if (painted)
            QVERIFY(luma[32 * 64 + 16] < 40);
        else
            QCOMPARE(int(luma[32 * 64 + 16]), 200);
        QCOMPARE(int(frame.bitsY()[32 * 64 + 16]), 200); // the copy of whoever sent it keeps the picture
    }

    void mask_isPainted_whenNobodyIsKnown()
    {
        TestVideoDisplay item(&provider);
        item.setAddress(1, 1, 1);
        Image header;
        header.setExtension(ImageHeaderExtension::PrivacyMask, "1;0,0 10000,0 10000,10000 0,10000");
        provider.last->rendering()->setVideoFrame(
            makeFrame(QSize(64, 64), [](int, int) { return Yuv{200}; }, header));
        QVERIFY(item.currentFrame()->bitsY()[32 * 64 + 16] < 40);
    }

    void streamId_bindsInQml()
    {
        QQmlEngine engine;
        TestVideoDisplay item(&provider);
        engine.rootContext()->setContextProperty(QStringLiteral("video"), &item);
        QQmlComponent component(&engine);
        component.setData(
            "import QtQml\nimport orrinsdkqml\n"
            "QtObject { property var id: video.streamId; property int changes: 0; onIdChanged: ++changes }",
            QUrl());
        const std::unique_ptr<QObject> object(component.create());
        QVERIFY2(object, qPrintable(component.errorString()));
        const int before = object->property("changes").toInt();
        item.setAddress(1, 1, 1);
        QCOMPARE(object->property("changes").toInt(), before + 1);
    }

    void item_endsItsStream_whenItIsDestroyed()
    {
        QPointer<FakeStreamProcessor> processor;
        {
            TestVideoDisplay item(&provider);
            item.setAddress(1, 1, 1);
            processor = provider.last;
            QVERIFY(processor);
        }
        QVERIFY(!processor);
    }

    void defaultItem_takesTheVideoProvider()
    {
        // No root object, no channel: the provider finds nothing and the item stays empty.
        QmlVideoDisplay item;
        item.setServerGroupId(1);
        item.setServerId(1);
        item.setChannelId(1);
        QCOMPARE(item.streamId(), RequestId());
        QQuickItem parent;
        const auto child = std::make_unique<QmlVideoDisplay>(&parent);
        QCOMPARE(child->parentItem(), &parent);
    }

private:
    FakeStreamProvider provider;
};

QTEST_MAIN(tst_QmlVideoDisplay)
#include "tst_qmlvideodisplay.moc"
