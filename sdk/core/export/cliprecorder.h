// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/mp4writer.h"
#include "codecs/videodecoder.h"
#include "core/session/mediaendpoint.h"
#include "core/stream/replay/replaylink.h"

#include <QElapsedTimer>
#include <QObject>
#include <QString>

#include <memory>

namespace orrin {

/*! Reads a span of a recording as fast as it comes and writes it to a file. Lives on a stream thread; the file is written there too,
    and the recorder waits meanwhile. */
class ClipRecorder : public QObject, private replay::ReplayLinkListener
{
    Q_OBJECT
public:
    /*! \a partName is the file that is written; whoever made the recorder renames or removes it. */
    ClipRecorder(QString partName, qint64 fromMs, qint64 toMs);
    ~ClipRecorder() override;

    void start(const MediaEndpoint &endpoint);

Q_SIGNALS:
    void progressed(double part);
    /*! Once. An empty reason: the file is whole. */
    void ended(const QString &reason);

private:
    void codecKnown(VideoCodec codec) override;
    void frameReceived(replay::CodedFrame frame) override;
    void rangeEnded() override;
    void rangeRefused(const PlaybackError &error) override;
    void linkFailed(const PlaybackError &error) override;

    bool begin(const replay::CodedFrame &frame, qint64 timeMs);
    bool hasRoom();
    void end(const QString &reason);

    const QString m_partName;
    const qint64 m_fromMs;
    const qint64 m_toMs;
    std::unique_ptr<replay::ReplayLink> m_link; // made on the recorder's thread, like its timers
    Mp4Writer m_writer;
    VideoCodec m_codec = VideoCodec::Unknown;
    qint64 m_lastMs = 0;       // of the recording
    qint64 m_clipMs = 0;       // of the clip, where gaps are left out
    qint64 m_frameMs = 40;     // between the last two frames
    qint64 m_checkedBytes = 0; // written when the room on the disk was looked at
    QElapsedTimer m_told;
    bool m_over = false;
};

} // namespace orrin
