// SPDX-License-Identifier: GPL-3.0-or-later
#include "video/qmlrendering.h"
#include "video/qmlvideoframereceiver.h"

#include "support/testframes.h"

#include <QSignalSpy>
#include <QTest>

using namespace orrin;

namespace {

std::unique_ptr<QmlRendering> makeRendering()
{
    return std::make_unique<QmlRendering>(std::make_unique<QmlVideoFrameReceiver>());
}

} // namespace

class tst_QmlRendering : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void setVideoFrame_reachesReceiverAndSignals()
    {
        const auto rendering = makeRendering();
        QSignalSpy changed(rendering.get(), &QmlRendering::currentFrameChanged);
        rendering->setVideoFrame(VideoFrame());
        QCOMPARE(changed.count(), 0);
        rendering->setVideoFrame(makeFrame(QSize(8, 6), Yuv{100}));
        QCOMPARE(changed.count(), 1);
        QCOMPARE(rendering->currentFrame().width(), 8);
    }

    void setError_signals_whenCodeIs_data()
    {
        QTest::addColumn<int>("code");
        QTest::addColumn<QStringList>("signalNames");
        const QString error = QStringLiteral("error");
        for (const int code : {1, 2, 3, 4, 6})
            QTest::addRow("%d", code) << code << QStringList({QStringLiteral("key"), error});
        QTest::addRow("8") << 8 << QStringList({QStringLiteral("end"), error});
        for (const int code : {0, 5, 7, 9, 10, 11, 100, -1})
            QTest::addRow("%d", code) << code << QStringList(error);
    }

    void setError_signals_whenCodeIs()
    {
        QFETCH(int, code);
        QFETCH(QStringList, signalNames);
        const auto rendering = makeRendering();
        QStringList seen;
        const auto note = [&](const char *name) {
            return [&, name] {
                seen.append(QLatin1StringView(name));
                QCOMPARE(rendering->errors().size(), 1); // the text is there already
            };
        };
        connect(rendering.get(), &QmlRendering::privateKeyRequired, this, note("key"));
        connect(rendering.get(), &QmlRendering::beyondEnd, this, note("end"));
        connect(rendering.get(), &QmlRendering::errorReceived, this, note("error"));
        const PlaybackError error(code, QStringLiteral("<detail>"));
        rendering->setError(error, 7);
        QCOMPARE(seen, signalNames);
        QCOMPARE(rendering->errors(), QList<QString>(error.formattedHTMLString()));
    }

    void errors_standInOrder_untilCleared()
    {
        const auto rendering = makeRendering();
        const PlaybackError first(5, QStringLiteral("one"));
        const PlaybackError second(5, QStringLiteral("two"));
        rendering->setError(first, 0);
        rendering->setError(second, 0);
        QCOMPARE(rendering->errors(),
                 QList<QString>({first.formattedHTMLString(), second.formattedHTMLString()}));
        rendering->clearErrors();
        QVERIFY(rendering->errors().isEmpty());
    }

    void errors_dropTheOldest_whenNobodyReads()
    {
        const auto rendering = makeRendering();
        for (int i = 0; i <= 1000; ++i)
            rendering->setError(PlaybackError(5, QString::number(i)), 0);
        QCOMPARE(rendering->errors().size(), 1000);
        QCOMPARE(rendering->errors().first(), PlaybackError(5, QStringLiteral("1")).formattedHTMLString());
        QCOMPARE(rendering->errors().last(), PlaybackError(5, QStringLiteral("1000")).formattedHTMLString());
    }

    void busyWheel_setsFlagBeforeItSignals()
    {
        const auto rendering = makeRendering();
        QVERIFY(!rendering->isBusyWheelActive());
        QList<bool> seen;
        connect(rendering.get(), &QmlRendering::showBusySpinner, this, [&](bool show) {
            seen.append(show);
            QCOMPARE(rendering->isBusyWheelActive(), show);
        });
        rendering->showBusySpinnerWheel();
        rendering->showBusySpinnerWheel();
        rendering->clearBusySpinnerWheel();
        QCOMPARE(seen, QList<bool>({true, true, false}));
    }

    void paintingAndZooming_doNothing()
    {
        const auto rendering = makeRendering();
        rendering->setVideoFrame(makeFrame(QSize(8, 6), Yuv{100}));
        rendering->moveViewingArea(1.0, 1.0);
        rendering->moveViewingArea(QPointF(0, 0), QPointF(1, 1));
        rendering->zoom(3);
        rendering->setZoomSpeed(2.0);
        rendering->setZoomRect(QRectF(0, 0, 1, 1));
        rendering->setZoomScale(2.0, 2.0);
        rendering->setZoomInfo(ZoomInfo{2.0, QRectF(0, 0, 1, 1)});
        rendering->zoomOut();
        rendering->startZooming(1.0, 1);
        rendering->stopZooming();
        rendering->startMovingViewingArea(1.0, 1.0);
        rendering->stopMovingViewingArea();
        rendering->setForceRenderSameTimestamp(true);
        rendering->destroyResources();
        QVERIFY(!rendering->renderImage(rendering->currentFrame(), QSizeF(8, 6), nullptr));
        QCOMPARE(rendering->renderedVideoFrameTime(), 0);
        QCOMPARE(rendering->zoomSpeed(), 0.0);
        QVERIFY(rendering->zoomRect().isNull());
        QVERIFY(rendering->zoomScaledRect().isNull());
        QCOMPARE(rendering->zoomScaledX(), 0.0);
        QCOMPARE(rendering->zoomScaledY(), 0.0);
        QVERIFY(rendering->currentFrame().isValidImage());
    }

    void snapshot_isInvalid_beforeTheFirstFrame()
    {
        const QmlRendering::Snapshot snapshot = makeRendering()->generateSnapshot();
        QVERIFY(!snapshot.valid);
        QVERIFY(snapshot.image.isNull());
        QVERIFY(snapshot.fileName.isEmpty());
    }

    void snapshot_isInvalid_whenFrameIsSound()
    {
        const auto rendering = makeRendering();
        rendering->setVideoFrame(
            VideoFrame(Image::fromAudio(ImageKind::AudioPcm16, QByteArrayLiteral("abcd"), 8000, 1)));
        QVERIFY(rendering->currentFrame().isValid());
        QVERIFY(!rendering->generateSnapshot().valid);
    }

    void snapshot_holdsPictureAndName()
    {
        const auto rendering = makeRendering();
        Image header;
        const QTimeZone zone("Europe/Helsinki");
        header.setTime(dateTimeToTime300(QDateTime(QDate(2026, 3, 5), QTime(9, 7, 3, 40), zone)));
        header.setTimeZone(zone);
        rendering->setVideoFrame(
            makeFrame(QSize(16, 12), [](int, int) { return Yuv{235}; }, header, 4294967296, 12));
        const QmlRendering::Snapshot snapshot = rendering->generateSnapshot();
        QVERIFY(snapshot.valid);
        QCOMPARE(snapshot.fileName, QStringLiteral("screenshot-05-Mar-2026-09-07-03-040-12-4294967296"));
        QCOMPARE(snapshot.image.size(), QSize(16, 12));
        QCOMPARE(snapshot.image.format(), QImage::Format_RGB32);
        QVERIFY(qRed(snapshot.image.pixel(8, 6)) >= 252);
    }
};

QTEST_GUILESS_MAIN(tst_QmlRendering)
#include "tst_qmlrendering.moc"
