// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "gui/audiodevice.h"

#include <QAudioSink>
#include <QObject>

#include <memory>

namespace orrin {

/*! The platform's default output. */
class QtAudioDevice : public QObject, public AudioDevice
{
    Q_OBJECT
public:
    QtAudioDevice();
    ~QtAudioDevice() override;

    bool open(qint64 bufferBytes, std::function<void()> lost) override;
    Format format() const override { return m_format; }
    qint64 freeBytes() const override;
    qint64 waitingBytes() const override;
    qint64 write(const QByteArray &samples) override;
    void setVolume(double volume) override;

private:
    std::unique_ptr<QAudioSink> m_sink;
    QIODevice *m_device = nullptr; // owned by the sink
    Format m_format;
    qint64 m_written = 0;
};

} // namespace orrin
