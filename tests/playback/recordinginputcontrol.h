// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/spabstractinputcontrol.h>

#include <QStringList>

/*! An input control that writes down what it is told, each call with its arguments. */
class RecordingInputControl : public orrin::SPAbstractInputControl
{
public:
    /*! The calls since the last time. */
    QStringList take() { return std::exchange(m_calls, {}); }

    void play(long long position, unsigned mark) override { note("play", position, mark); }
    void live(int mark) override { note("live", mark); }
    void pause(int mark) override { note("pause", mark); }
    void rewind(int speed) override { note("rewind", speed); }
    void fastForward(int speed) override { note("fastForward", speed); }
    void stepBack() override { note("stepBack"); }
    void stepForward() override { note("stepForward"); }
    void jumpToStart() override { note("jumpToStart"); }
    void jumpToEnd() override { note("jumpToEnd"); }
    void jump(orrin::Time300 time, int mode) override { note("jump", time, mode); }
    void scrub(orrin::Time300 time, unsigned mark) override { note("scrub", time, mark); }
    void setSpeed(double speed) override { note("setSpeed", speed); }
    void setStreamPreference(int preference) override { note("setStreamPreference", preference); }
    void enableModule(orrin::SPModuleType module) override { note("enableModule", int(module)); }
    void disableModule(orrin::SPModuleType module) override { note("disableModule", int(module)); }

protected:
    void trackIdChanged(unsigned trackId) override { note("trackId", trackId); }

private:
    template <class... Arguments>
    void note(const char *name, Arguments... arguments)
    {
        QStringList texts;
        (texts.append(QString::number(arguments)), ...);
        m_calls.append(QLatin1StringView(name) + u'(' + texts.join(QStringLiteral(", ")) + u')');
    }

    QStringList m_calls;
};
