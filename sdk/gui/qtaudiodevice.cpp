// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/qtaudiodevice.h"

#include <QAudioDevice>
#include <QMediaDevices>

#include <algorithm>

namespace orrin {

namespace {

QAudioFormat qtFormat(const AudioDevice::Format &format)
{
    QAudioFormat result;
    result.setSampleRate(format.sampleRate);
    result.setChannelCount(format.channels);
    result.setSampleFormat(QAudioFormat::Int16);
    return result;
}

} // namespace

QtAudioDevice::QtAudioDevice() = default;
QtAudioDevice::~QtAudioDevice() = default;

bool QtAudioDevice::open(qint64 bufferBytes, std::function<void()> lost)
{
    const QAudioDevice output = QMediaDevices::defaultAudioOutput();
    if (output.isNull())
        return false;
    if (!output.isFormatSupported(qtFormat(m_format))) {
        m_format.sampleRate = output.preferredFormat().sampleRate();
        m_format.channels = std::clamp(output.preferredFormat().channelCount(), 1, 2);
        if (m_format.sampleRate < 1 || !output.isFormatSupported(qtFormat(m_format)))
            return false;
    }
    m_sink = std::make_unique<QAudioSink>(output, qtFormat(m_format));
    m_sink->setBufferSize(bufferBytes);
    connect(
        m_sink.get(), &QAudioSink::stateChanged, this,
        [this, lost](QAudio::State state) {
            const QAudio::Error error = m_sink->error();
            if (state == QAudio::StoppedState && error != QAudio::NoError && error != QAudio::UnderrunError)
                lost();
        },
        Qt::QueuedConnection);
    m_device = m_sink->start();
    return m_device && m_sink->error() == QAudio::NoError;
}

qint64 QtAudioDevice::freeBytes() const
{
    return m_device ? m_sink->bytesFree() : 0;
}

qint64 QtAudioDevice::waitingBytes() const
{
    if (!m_device)
        return 0;
    return std::max<qint64>(0, m_written - m_format.bytesOf(m_sink->processedUSecs()));
}

qint64 QtAudioDevice::write(const QByteArray &samples)
{
    const qint64 written = m_device ? std::max<qint64>(0, m_device->write(samples)) : 0;
    m_written += written;
    return written;
}

void QtAudioDevice::setVolume(double volume)
{
    if (m_sink)
        m_sink->setVolume(volume);
}

} // namespace orrin
