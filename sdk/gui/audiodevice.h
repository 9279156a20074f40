// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QtTypes>

#include <functional>
#include <memory>

namespace orrin {

/*! What sound is played on: interleaved 16-bit samples. Lives on the thread of the AudioPlayer that owns it. */
class AudioDevice
{
public:
    struct Format
    {
        int sampleRate = 48000;
        int channels = 2;

        qint64 bytesOf(qint64 microseconds) const { return microseconds * sampleRate / 1'000'000 * channels * 2; }
        qint64 microsecondsOf(qint64 bytes) const { return bytes / (channels * 2) * 1'000'000 / sampleRate; }
    };

    virtual ~AudioDevice() = default;

    /*! Begins to play, with room for \a bufferBytes. False when there is no device. \a lost is called, by the event loop, when the
        device goes; the object is to be destroyed then. */
    virtual bool open(qint64 bufferBytes, std::function<void()> lost) = 0;
    /*! What the device takes; known after open(). */
    virtual Format format() const = 0;
    /*! Bytes that write() takes now. */
    virtual qint64 freeBytes() const = 0;
    /*! Bytes that were written and not heard yet. */
    virtual qint64 waitingBytes() const = 0;
    virtual qint64 write(const QByteArray &samples) = 0;
    virtual void setVolume(double volume) = 0;
};

/*! Makes a device; the default one is a QtAudioDevice. */
using AudioDeviceFactory = std::function<std::unique_ptr<AudioDevice>()>;

} // namespace orrin
