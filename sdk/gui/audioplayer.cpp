// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/audioplayer.h"

#include <contract/gui/audiosettings.h>

#include <QThread>

#include <algorithm>
#include <utility>

namespace orrin {

namespace {

using namespace std::chrono_literals;

constexpr std::uint8_t KindMask = 0x0F;
// The device's buffer has room for what the limit allows and one large packet more.
constexpr qint64 BufferMicroseconds = 250'000;
// A backlog is one that stood through so many pieces.
constexpr int PiecesWatched = 10;
constexpr qint64 BacklogMicroseconds = 10'000;

constexpr qint64 microseconds(std::chrono::milliseconds time)
{
    return std::chrono::microseconds(time).count();
}

Time300 lengthOf(const Image &sound)
{
    const qint64 samples = sound.audioPayload().size() / (2 * sound.channels());
    return samples * 300 / sound.sampleRate();
}

} // namespace

AudioPlayer::AudioPlayer(AudioDeviceFactory factory, QObject *parent)
    : QObject(parent), m_factory(std::move(factory)), m_retryTimer(this)
{
    m_retryTimer.setSingleShot(true);
    connect(&m_retryTimer, &QTimer::timeout, this, &AudioPlayer::openDevice);
}

AudioPlayer::~AudioPlayer()
{
    Q_ASSERT(thread() == QThread::currentThread());
}

void AudioPlayer::push(const Image &sound)
{
    const bool playable = ImageKind(sound.flags() & KindMask) == ImageKind::AudioPcm16 && sound.sampleRate() > 0 &&
                          sound.channels() > 0 && sound.channels() <= 2 && !sound.audioPayload().isEmpty();
    if (!playable)
        return;
    const std::lock_guard lock(m_mutex);
    if (m_waiting.size() >= MaxWaiting)
        m_waiting.pop_front();
    m_waiting.push_back(sound);
    if (!std::exchange(m_posted, true))
        QMetaObject::invokeMethod(this, &AudioPlayer::drain, Qt::QueuedConnection);
}

void AudioPlayer::drain()
{
    std::deque<Image> sounds;
    {
        const std::lock_guard lock(m_mutex);
        sounds.swap(m_waiting);
        m_posted = false;
    }
    if (m_closed)
        return;
    if (!m_device && !m_retryTimer.isActive())
        openDevice();
    for (const Image &sound : sounds) {
        if (m_device)
            play(sound);
        else
            ++m_dropped;
    }
}

void AudioPlayer::play(const Image &sound)
{
    const AudioDevice::Format format = m_device->format();
    applyVolume();
    const qint64 waiting = m_device->waitingBytes();
    if (waiting > format.bytesOf(microseconds(MaxDelay))) {
        ++m_dropped;
        return;
    }
    if (waiting == 0) {
        fillSilence(format.bytesOf(microseconds(Delay)));
        m_lowestWaiting.reset();
        m_pieces = 0;
    }
    if (!m_resampler.setFormats(AudioResampler::pcm16(sound.sampleRate(), sound.channels()),
                                AudioResampler::pcm16(format.sampleRate, format.channels))) {
        ++m_dropped;
        return;
    }
    write(m_resampler.convert(withoutBacklog(sound, waiting)));
    m_writtenUntil = sound.time() + lengthOf(sound);
}

QByteArray AudioPlayer::withoutBacklog(const Image &sound, qint64 waitingBytes)
{
    const QByteArray &samples = sound.audioPayload();
    if (waitingBytes > 0)
        m_lowestWaiting = std::min(waitingBytes, m_lowestWaiting.value_or(waitingBytes));
    if (++m_pieces < PiecesWatched || !m_lowestWaiting)
        return samples;
    const qint64 excess = m_device->format().microsecondsOf(*m_lowestWaiting) - microseconds(Delay);
    m_lowestWaiting.reset();
    m_pieces = 0;
    if (excess < BacklogMicroseconds)
        return samples;
    const qint64 skipped = excess * sound.sampleRate() / 1'000'000 * sound.channels() * 2;
    return samples.sliced(std::min<qint64>(skipped, samples.size()));
}

void AudioPlayer::fillSilence(qint64 bytes)
{
    write(QByteArray(bytes, '\0'));
}

void AudioPlayer::write(QByteArray samples)
{
    samples.truncate(std::min<qint64>(samples.size(), m_device->freeBytes()));
    m_device->write(samples);
}

std::optional<Time300> AudioPlayer::heardTime() const
{
    if (!m_device || !m_writtenUntil)
        return std::nullopt;
    const qint64 waiting = m_device->waitingBytes();
    if (waiting == 0)
        return std::nullopt;
    return *m_writtenUntil - m_device->format().microsecondsOf(waiting) * 300 / 1'000'000;
}

void AudioPlayer::openDevice()
{
    m_writtenUntil.reset();
    m_device = m_factory();
    // With room in the largest format; the device cuts it to its own.
    const AudioDevice::Format usual;
    const auto lost = [this] { QMetaObject::invokeMethod(this, &AudioPlayer::deviceLost, Qt::QueuedConnection); };
    if (m_device && m_device->open(usual.bytesOf(BufferMicroseconds), lost)) {
        m_retryPause = 1000ms;
        return;
    }
    m_device.reset();
    m_retryTimer.start(m_retryPause);
    m_retryPause = std::min(2 * m_retryPause, RetryLimit);
}

void AudioPlayer::deviceLost()
{
    m_device.reset();
    m_writtenUntil.reset();
    if (!m_closed && !m_retryTimer.isActive())
        m_retryTimer.start(m_retryPause);
}

void AudioPlayer::deviceAppeared()
{
    if (m_device || m_closed)
        return;
    m_retryTimer.stop();
    m_retryPause = 1000ms;
    openDevice();
}

void AudioPlayer::close()
{
    m_closed = true;
    m_retryTimer.stop();
    m_device.reset();
    m_writtenUntil.reset();
}

void AudioPlayer::applyVolume()
{
    m_device->setVolume(AudioSettings::isMuted() ? 0.0 : AudioSettings::volume());
}

} // namespace orrin
