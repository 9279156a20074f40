// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/export/cliprecorder.h"

#include "core/stream/replay/replaytime.h"

#include <contract/core/clipexport.h>

#include <QFileInfo>
#include <QStorageInfo>

#include <algorithm>

namespace orrin {

namespace {

/*! A longer pause between two frames is a gap. */
constexpr qint64 LongestPauseMs = 5000;
constexpr qint64 BytesBetweenChecks = 8LL << 20;
constexpr qint64 TellEveryMs = 100;

} // namespace

ClipRecorder::ClipRecorder(QString partName, qint64 fromMs, qint64 toMs)
    : m_partName(std::move(partName)), m_fromMs(fromMs), m_toMs(toMs)
{
}

ClipRecorder::~ClipRecorder() = default;

void ClipRecorder::start(const MediaEndpoint &endpoint)
{
    if (!hasRoom()) {
        end(tr("The disk is full."));
        return;
    }
    m_told.start();
    m_link = std::make_unique<replay::ReplayLink>(static_cast<replay::ReplayLinkListener &>(*this), StreamTiming(), nullptr);
    m_link->open(endpoint);
    m_link->request({m_fromMs, m_toMs});
}

void ClipRecorder::codecKnown(VideoCodec codec)
{
    m_codec = codec;
}

void ClipRecorder::frameReceived(replay::CodedFrame frame)
{
    const qint64 timeMs = replay::firstMs(frame.time);
    if (m_over || timeMs >= m_toMs)
        return;
    if (!m_writer.isOpen()) {
        if (!frame.key || !begin(frame, timeMs))
            return;
    } else {
        const qint64 pause = timeMs - m_lastMs;
        if (pause > 0 && pause <= LongestPauseMs && !frame.discontinuity)
            m_frameMs = pause;
        m_clipMs += m_frameMs;
    }
    m_lastMs = timeMs;
    if (!m_writer.write(frame.data, m_clipMs, frame.key)) {
        end(tr("The file cannot be written: %1").arg(m_writer.errorText()));
        return;
    }
    if (m_writer.bytesWritten() - m_checkedBytes > BytesBetweenChecks && !hasRoom()) {
        end(tr("The disk is full."));
        return;
    }
    if (m_told.elapsed() >= TellEveryMs) {
        m_told.restart();
        Q_EMIT progressed(std::clamp(double(timeMs - m_fromMs) / double(m_toMs - m_fromMs), 0.0, 1.0));
    }
}

/*! Opens the file. The size of the pictures is that of the first one. */
bool ClipRecorder::begin(const replay::CodedFrame &frame, qint64 timeMs)
{
    VideoDecoder decoder;
    Image image;
    if (decoder.open(m_codec) != VideoDecoder::Status::Ok || decoder.send(frame.data, 0) != VideoDecoder::Status::Ok)
        return false;
    if (decoder.receive(&image, nullptr) != VideoDecoder::Status::Ok) {
        decoder.drain();
        if (decoder.receive(&image, nullptr) != VideoDecoder::Status::Ok)
            return false;
    }
    if (m_writer.open(m_partName, m_codec, image.width(), image.height(), timeMs))
        return true;
    end(tr("The file cannot be written: %1").arg(m_writer.errorText()));
    return false;
}

bool ClipRecorder::hasRoom()
{
    m_checkedBytes = m_writer.bytesWritten();
    const QStorageInfo disk(QFileInfo(m_partName).absolutePath());
    return !disk.isValid() || disk.bytesAvailable() >= ClipExport::SpareBytes;
}

void ClipRecorder::rangeEnded()
{
    if (m_over)
        return;
    if (!m_writer.isOpen())
        end(tr("Nothing is recorded in this span."));
    else if (!m_writer.finish())
        end(tr("The file cannot be written: %1").arg(m_writer.errorText()));
    else
        end(QString());
}

void ClipRecorder::rangeRefused(const PlaybackError &error)
{
    if (error.errorCode() == PlaybackError::NotFound || error.errorCode() == PlaybackError::BeyondEnd)
        end(tr("Nothing is recorded in this span."));
    else
        linkFailed(error);
}

void ClipRecorder::linkFailed(const PlaybackError &error)
{
    end(tr("The recorder stopped: %1").arg(error.formattedHTMLString()));
}

void ClipRecorder::end(const QString &reason)
{
    if (m_over)
        return;
    m_over = true;
    if (m_link)
        m_link->close();
    m_writer.abandon();
    Q_EMIT ended(reason);
}

} // namespace orrin
