// SPDX-License-Identifier: GPL-3.0-or-later
#include "recordingrenderer.h"

#include <contract/core/displayoutput.h>
#include <contract/gui/audiospmfactory.h>
#include <contract/gui/display.h>
#include <contract/gui/guispmfactory.h>

#include <QTest>

using namespace orrin;

namespace {

class RecordingDisplayFactory : public DisplayFactory
{
public:
    void setDisplayDecorator(const QSharedPointer<DisplayDecorator> &) override {}
    std::shared_ptr<DisplayInterface> createDisplay(ChannelUID channel, QSharedPointer<PlaybackState> state, WidgetType widget,
                                                    DisplayType display, const QString &server, const QString &name,
                                                    const QRectF &, const ZoomInfo &) override
    {
        asked = channel;
        askedState = state;
        askedWidget = widget;
        askedDisplay = display;
        askedNames = {server, name};
        auto made = std::make_shared<orrin::Display>();
        auto renderer = QSharedPointer<RecordingRenderer>::create();
        renderers.append(renderer);
        made->setRenderer(renderer);
        return made;
    }
    WidgetType type() const override { return WidgetType::QuickItem; }
    DisplayType displayType() const override { return DisplayType::Video; }

    ChannelUID asked;
    QSharedPointer<PlaybackState> askedState;
    WidgetType askedWidget = WidgetType::None;
    DisplayType askedDisplay = DisplayType::Audio;
    QStringList askedNames;
    QList<QWeakPointer<RecordingRenderer>> renderers;
};

} // namespace

class TestGuiSpmFactory : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void createOutputs_givesOneDisplayOutput_fromTheDisplayFactory();
    void createOutputs_givesSeparateDisplays_eachTime();
    void outputs_forwardFramesErrorsAndBusy();
    void close_takesTheRendererOff();
    void createOutputs_givesAnOutputWithoutDisplay_whenThereIsNoFactory();
    void otherModules_areTheProcessorsOwn();
};

void TestGuiSpmFactory::createOutputs_givesOneDisplayOutput_fromTheDisplayFactory()
{
    const auto displays = QSharedPointer<RecordingDisplayFactory>::create();
    GuiSPMFactory factory(displays);
    const auto state = QSharedPointer<PlaybackState>::create();
    factory.setPlaybackState(state);
    factory.setChannel(ChannelUID(5, 6), QStringLiteral("server"), QStringLiteral("camera"));
    const auto outputs = factory.createOutputs();
    QCOMPARE(outputs.size(), 1);
    const auto output = outputs.first().dynamicCast<DisplayOutput>();
    QVERIFY(output);
    QCOMPARE(output->presenter()->displays().size(), 1);
    QVERIFY(std::dynamic_pointer_cast<orrin::Display>(output->presenter()->displays().first()));
    QCOMPARE(displays->asked, ChannelUID(5, 6));
    QCOMPARE(displays->askedState, state);
    QCOMPARE(displays->askedWidget, WidgetType::QuickItem);
    QCOMPARE(displays->askedDisplay, DisplayType::Video);
    QCOMPARE(displays->askedNames, (QStringList{QStringLiteral("server"), QStringLiteral("camera")}));
}

void TestGuiSpmFactory::createOutputs_givesSeparateDisplays_eachTime()
{
    const auto displays = QSharedPointer<RecordingDisplayFactory>::create();
    AudioSPMFactory factory(displays);
    const auto first = factory.createOutputs().first().dynamicCast<DisplayOutput>();
    const auto second = factory.createOutputs().first().dynamicCast<DisplayOutput>();
    QVERIFY(first && second);
    QVERIFY(first->presenter()->displays().first() != second->presenter()->displays().first());
}

void TestGuiSpmFactory::outputs_forwardFramesErrorsAndBusy()
{
    const auto displays = QSharedPointer<RecordingDisplayFactory>::create();
    GuiSPMFactory factory(displays);
    const auto outputs = factory.createOutputs();
    const auto renderer = displays->renderers.first().toStrongRef();
    outputs.first()->setBusy(true);
    outputs.first()->setError(PlaybackError(PlaybackError::NotFound), 2);
    outputs.first()->setVideoFrame(VideoFrame(Image::fromAudio(ImageKind::AudioPcm16, "abcd", 8000, 1), 9, 1));
    outputs.first()->setBusy(false);
    outputs.first()->setDelay(44);
    QTRY_COMPARE(renderer->calls, (QStringList{QStringLiteral("busy"), QStringLiteral("error 9 2"), QStringLiteral("frame 9"),
                                               QStringLiteral("idle")}));
    const auto output = outputs.first().dynamicCast<DisplayOutput>();
    QCOMPARE(std::dynamic_pointer_cast<orrin::Display>(output->presenter()->displays().first())->delay(), 44);
}

void TestGuiSpmFactory::close_takesTheRendererOff()
{
    const auto displays = QSharedPointer<RecordingDisplayFactory>::create();
    GuiSPMFactory factory(displays);
    const auto outputs = factory.createOutputs();
    QVERIFY(!displays->renderers.first().isNull());
    outputs.first()->close();
    QVERIFY(displays->renderers.first().isNull());
    outputs.first()->setBusy(true);
    QCoreApplication::processEvents();
}

void TestGuiSpmFactory::createOutputs_givesAnOutputWithoutDisplay_whenThereIsNoFactory()
{
    GuiSPMFactory factory(nullptr);
    const auto outputs = factory.createOutputs();
    QCOMPARE(outputs.size(), 1);
    QVERIFY(outputs.first().dynamicCast<DisplayOutput>()->presenter()->displays().isEmpty());
    outputs.first()->setBusy(true);
    outputs.first()->setVideoFrame(VideoFrame());
}

void TestGuiSpmFactory::otherModules_areTheProcessorsOwn()
{
    GuiSPMFactory factory(nullptr);
    QVERIFY(!factory.createController());
    QVERIFY(!factory.createSynchroniser());
    QVERIFY(!factory.createAuthentication());
    QVERIFY(!factory.createDecoder());
    QVERIFY(!factory.createTiming());
}

QTEST_GUILESS_MAIN(TestGuiSpmFactory)
#include "tst_guispmfactory.moc"
