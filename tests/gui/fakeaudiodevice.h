// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "gui/audiodevice.h"

#include <chrono>
#include <functional>

namespace orrin {

/*! What fake devices have in common: their clock, and what became of them. Outlives them. */
struct FakeAudio
{
    std::function<qint64()> nowMicroseconds; //!< by default the steady clock
    bool present = true;
    AudioDevice::Format format;
    double volume = -1;
    int opened = 0;
    QByteArray written;
    std::function<void()> lost; //!< of the newest device

    qint64 now() const
    {
        if (nowMicroseconds)
            return nowMicroseconds();
        using namespace std::chrono;
        return duration_cast<microseconds>(steady_clock::now().time_since_epoch()).count();
    }
};

/*! A device that plays what it is given at the pace of a clock. */
class FakeAudioDevice : public AudioDevice
{
public:
    explicit FakeAudioDevice(FakeAudio &audio) : m_audio(audio) {}

    bool open(qint64 bufferBytes, std::function<void()> lost) override
    {
        m_buffer = bufferBytes;
        m_audio.lost = std::move(lost);
        m_audio.opened += m_audio.present;
        return m_audio.present;
    }
    Format format() const override { return m_audio.format; }
    qint64 freeBytes() const override { return m_buffer - waitingBytes(); }
    qint64 waitingBytes() const override
    {
        const qint64 left = m_emptyAt - m_audio.now();
        return left > 0 ? m_audio.format.bytesOf(left) : 0;
    }
    qint64 write(const QByteArray &samples) override
    {
        const qint64 now = m_audio.now();
        m_emptyAt = qMax(m_emptyAt, now) + m_audio.format.microsecondsOf(samples.size());
        m_audio.written += samples;
        return samples.size();
    }
    void setVolume(double volume) override { m_audio.volume = volume; }

private:
    FakeAudio &m_audio;
    qint64 m_buffer = 0;
    qint64 m_emptyAt = 0;
};

inline AudioDeviceFactory fakeDevices(FakeAudio &audio)
{
    return [&audio] { return std::make_unique<FakeAudioDevice>(audio); };
}

} // namespace orrin
