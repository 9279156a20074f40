// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/fakestreamprocessor.h"

#include "video/qmlrendering.h"
#include "video/qmlvideoframereceiver.h"

#include <contract/core/displayoutput.h>
#include <contract/gui/display.h>

namespace orrin {

void FakeInputControl::play(long long position, unsigned mark)
{
    calls.append(QStringLiteral("play %1 %2").arg(position).arg(mark));
}

void FakeInputControl::live(int mark)
{
    calls.append(QStringLiteral("live %1").arg(mark));
}

void FakeInputControl::pause(int mark)
{
    calls.append(QStringLiteral("pause %1").arg(mark));
}

void FakeInputControl::rewind(int speed)
{
    calls.append(QStringLiteral("rewind %1").arg(speed));
}

void FakeInputControl::fastForward(int speed)
{
    calls.append(QStringLiteral("fastForward %1").arg(speed));
}

void FakeInputControl::stepBack()
{
    calls.append(QStringLiteral("stepBack"));
}

void FakeInputControl::stepForward()
{
    calls.append(QStringLiteral("stepForward"));
}

void FakeInputControl::jumpToStart()
{
    calls.append(QStringLiteral("jumpToStart"));
}

void FakeInputControl::jumpToEnd()
{
    calls.append(QStringLiteral("jumpToEnd"));
}

void FakeInputControl::jump(Time300 time, int mode)
{
    calls.append(QStringLiteral("jump %1 %2").arg(time).arg(mode));
}

void FakeInputControl::scrub(Time300 time, unsigned mark)
{
    calls.append(QStringLiteral("scrub %1 %2").arg(time).arg(mark));
}

void FakeInputControl::setSpeed(double speed)
{
    calls.append(QStringLiteral("setSpeed %1").arg(speed));
}

void FakeInputControl::setStreamPreference(int preference)
{
    calls.append(QStringLiteral("setStreamPreference %1").arg(preference));
}

void FakeInputControl::enableModule(SPModuleType module)
{
    calls.append(QStringLiteral("enableModule %1").arg(int(module)));
}

void FakeInputControl::disableModule(SPModuleType module)
{
    calls.append(QStringLiteral("disableModule %1").arg(int(module)));
}

QSharedPointer<TrackBounds> FakeConnection::createTrackBounds(unsigned trackAndChannel)
{
    asked.append(trackAndChannel);
    return QSharedPointer<TrackBounds>::create(begin, end);
}

FakeStreamProcessor::FakeStreamProcessor(quint16 id)
    : id(id)
    , control(std::make_unique<FakeInputControl>())
    , state(QSharedPointer<PlaybackState>::create())
    , presenter(std::make_shared<FakePresenter>())
{
    const QSharedPointer<QmlRendering> rendering(new QmlRendering(std::make_unique<QmlVideoFrameReceiver>()));
    renderingPointer = rendering.data();
    const auto display = std::make_shared<Display>();
    display->setRenderer(rendering);
    presenter->list.append(display);
    outputList.append(QSharedPointer<SPAbstractOutput>(new DisplayOutput(presenter)));
}

FakeStreamProcessor::~FakeStreamProcessor() = default;

void FakeStreamProcessor::start()
{
    active = true;
    calls.append(QStringLiteral("start"));
}

void FakeStreamProcessor::stop()
{
    active = false;
    calls.append(QStringLiteral("stop"));
}

void FakeStreamProcessor::setPresentationMode(int mode)
{
    calls.append(QStringLiteral("setPresentationMode %1").arg(mode));
}

} // namespace orrin
