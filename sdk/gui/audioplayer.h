// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/audioresampler.h"
#include "gui/audiodevice.h"

#include <contract/gui/export.h>
#include <contract/util/image.h>

#include <QObject>
#include <QTimer>

#include <chrono>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>

namespace orrin {

/*! Plays one stream of sound on a device.

    push(): any thread; everything else: the thread that the object lives on. Sound is heard Delay after it was pushed, whatever the
    packets of the stream are: the device is given that much silence first, a backlog that lasts is cut back to it, and what would come
    later than MaxDelay is left out at once, so that sound keeps beside a picture that is shown as it comes. At most MaxWaiting pieces wait. Without a device sound is thrown away; one is looked for again with
    a pause that doubles from a second to RetryLimit, and at once when deviceAppeared() is called. */
class ORRINSDK_GUI_EXPORT AudioPlayer : public QObject
{
    Q_OBJECT
public:
    static constexpr std::size_t MaxWaiting = 64;
    static constexpr std::chrono::milliseconds Delay{30};
    static constexpr std::chrono::milliseconds MaxDelay{120};
    static constexpr std::chrono::milliseconds RetryLimit{30000};

    explicit AudioPlayer(AudioDeviceFactory factory, QObject *parent = nullptr);
    ~AudioPlayer() override;

    /*! Plays \a sound behind what was pushed before. Sound of other kinds than 16-bit samples is left out. */
    void push(const Image &sound);

    /*! An output of the platform came or went. */
    void deviceAppeared();
    /*! Silent for good; the device is given back. */
    void close();

    bool hasDevice() const { return m_device != nullptr; }
    /*! The moment that is heard now; nothing while it is silent. */
    std::optional<Time300> heardTime() const;
    /*! Pieces that were left out. */
    quint64 dropped() const { return m_dropped; }

private:
    void drain();
    void play(const Image &sound);
    void write(QByteArray samples);
    void fillSilence(qint64 bytes);
    QByteArray withoutBacklog(const Image &sound, qint64 waitingBytes);
    void openDevice();
    void deviceLost();
    void applyVolume();

    const AudioDeviceFactory m_factory;
    std::unique_ptr<AudioDevice> m_device;
    AudioResampler m_resampler;
    QTimer m_retryTimer;
    std::chrono::milliseconds m_retryPause{1000};
    std::optional<Time300> m_writtenUntil; // the moment behind the last sample that was written
    quint64 m_dropped = 0;
    std::optional<qint64> m_lowestWaiting; // of the last pieces
    int m_pieces = 0;
    bool m_closed = false;

    std::mutex m_mutex;
    std::deque<Image> m_waiting; // guarded by m_mutex, as is the next
    bool m_posted = false;
};

} // namespace orrin
