// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/stream/processor/outputgate.h"
#include "core/stream/processor/streamsource.h"

#include <QObject>

#include <memory>
#include <vector>

namespace orrin {

/*! What a StreamProcessor asks its worker to play. */
struct StreamOrder
{
    quint32 number = 0; //!< comes back with what is reported of the order
    MediaEndpoint endpoint;
};

/*! The side of a StreamProcessor that lives on a stream thread: owns the sources, gives their pictures numbers, times and extensions, and
    hands them to the outputs. All operations are called on its thread; the processor posts them.

    One source plays while a second one may open; the second takes over with its first key frame, so that the picture never
    stands. */
class StreamWorker : public QObject, private StreamSourceListener
{
    Q_OBJECT
public:
    StreamWorker(std::shared_ptr<OutputGate> gate, quint16 streamId, const StreamTiming &timing);
    ~StreamWorker() override;

    void open(const StreamOrder &order);
    /*! Ends all sources; no picture follows until the next open(). */
    void close();
    void setHeld(bool held);
    void setPrivacyMask(const QByteArray &mask);
    void setBusy(bool busy);
    void reportError(const PlaybackError &error);

Q_SIGNALS:
    /*! The first picture of an order has been shown. */
    void started(quint32 order);
    /*! \a stillPlaying: an older source goes on. */
    void failed(quint32 order, const orrin::PlaybackError &error, bool stillPlaying);

private:
    struct Entry
    {
        std::unique_ptr<StreamSource> source;
        quint32 order = 0;
        bool started = false;
    };

    void pictureReady(StreamSource &source, SourcePicture picture) override;
    void sourceFailed(StreamSource &source, const PlaybackError &error) override;

    void show(StreamSource &source, SourcePicture &picture);
    void retire(Entry &entry);

    std::shared_ptr<OutputGate> m_gate;
    const quint16 m_streamId;
    const StreamTiming m_timing;
    Entry m_current;
    Entry m_next;
    std::vector<std::unique_ptr<StreamSource>> m_retired; // each may be in the middle of a call
    quint64 m_frameId = 0;
    QByteArray m_mask;
    bool m_maskShown = false;
    bool m_busy = false;
    bool m_held = false;
};

} // namespace orrin
