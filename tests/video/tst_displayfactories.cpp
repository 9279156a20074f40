// SPDX-License-Identifier: GPL-3.0-or-later
#include "video/qmlaudiodisplayfactory.h"
#include "video/qmlrendering.h"
#include "video/qmlvideodisplayfactory.h"

#include "support/testframes.h"

#include <contract/gui/rendererhostinterface.h>

#include <QSignalSpy>
#include <QTest>

using namespace orrin;

namespace {

std::shared_ptr<DisplayInterface> createDisplay(DisplayFactory &factory)
{
    return factory.createDisplay(ChannelUID(), nullptr, WidgetType::GLWidget, DisplayType::Still, QString(),
                                 QString(), QRectF(), ZoomInfo());
}

QmlRendering *renderingOf(const std::shared_ptr<DisplayInterface> &display)
{
    auto *host = dynamic_cast<RendererHostInterface *>(display.get());
    return host ? dynamic_cast<QmlRendering *>(host->renderer().data()) : nullptr;
}

} // namespace

class tst_DisplayFactories : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void types_areThoseOfTheFactory()
    {
        const QmlVideoDisplayFactory video;
        QCOMPARE(int(video.type()), 3);
        QCOMPARE(int(video.displayType()), 2);
        const QmlAudioDisplayFactory audio;
        QCOMPARE(int(audio.type()), 0);
        QCOMPARE(int(audio.displayType()), 0);
        QObject parent;
        QCOMPARE((new QmlVideoDisplayFactory(&parent))->parent(), &parent);
        QCOMPARE((new QmlAudioDisplayFactory(&parent))->parent(), &parent);
    }

    void createDisplay_givesItsOwnRenderer_onEachCall()
    {
        QmlVideoDisplayFactory video;
        QmlAudioDisplayFactory audio;
        video.setDisplayDecorator(nullptr);
        audio.setDisplayDecorator(nullptr);
        for (DisplayFactory *factory :
             {static_cast<DisplayFactory *>(&video), static_cast<DisplayFactory *>(&audio)}) {
            const auto first = createDisplay(*factory);
            const auto second = createDisplay(*factory);
            QVERIFY(first != second);
            QVERIFY(renderingOf(first));
            QVERIFY(renderingOf(second));
            QVERIFY(renderingOf(first) != renderingOf(second));
            QVERIFY(!renderingOf(first)->parent());
        }
    }

    void createDisplay_givesItsOwnReceiver_onEachCall()
    {
        QmlVideoDisplayFactory factory;
        const auto first = createDisplay(factory);
        const auto second = createDisplay(factory);
        QSignalSpy changed(renderingOf(first), &QmlRendering::currentFrameChanged);
        first->setVideoFrame(makeFrame(QSize(8, 8), Yuv{1}));
        QTRY_COMPARE(changed.count(), 1);
        QVERIFY(renderingOf(first)->currentFrame().isValid());
        QVERIFY(!renderingOf(second)->currentFrame().isValid());
    }

    void receivers_areThoseOfTheFactory()
    {
        // A frame of sound of no known kind: only the receiver of sound signals it.
        QmlVideoDisplayFactory video;
        QmlAudioDisplayFactory audio;
        const auto picture = createDisplay(video);
        const auto sound = createDisplay(audio);
        QSignalSpy pictureChanged(renderingOf(picture), &QmlRendering::currentFrameChanged);
        QSignalSpy soundChanged(renderingOf(sound), &QmlRendering::currentFrameChanged);
        renderingOf(picture)->setVideoFrame(VideoFrame());
        renderingOf(sound)->setVideoFrame(VideoFrame());
        QCOMPARE(pictureChanged.count(), 0);
        QCOMPARE(soundChanged.count(), 1);
    }
};

QTEST_GUILESS_MAIN(tst_DisplayFactories)
#include "tst_displayfactories.moc"
