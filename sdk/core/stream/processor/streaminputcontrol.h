// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/stream/processor/playbackcommand.h"

#include <contract/core/spabstractinputcontrol.h>

namespace orrin {

/*! The input control of a StreamProcessor: turns its operations into commands. Main thread; owned by the processor. */
class StreamInputControl : public SPAbstractInputControl
{
    Q_OBJECT
public:
    explicit StreamInputControl(PlaybackCommandSink &sink, QObject *parent = nullptr);
    ~StreamInputControl() override;

    void play(long long position, unsigned mark) override;
    void live(int mark) override;
    void pause(int mark) override;
    void rewind(int speed) override;
    void fastForward(int speed) override;
    void stepBack() override;
    void stepForward() override;
    void jumpToStart() override;
    void jumpToEnd() override;
    void jump(Time300 time, int mode) override;
    void scrub(Time300 time, unsigned mark) override;
    void setSpeed(double speed) override;
    void setStreamPreference(int preference) override;
    void enableModule(SPModuleType module) override;
    void disableModule(SPModuleType module) override;

protected:
    void trackIdChanged(unsigned trackId) override;

private:
    PlaybackCommandSink &m_sink;
    double m_speed = 1.0;
};

} // namespace orrin
