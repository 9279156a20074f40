// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/stream/processor/streamprocessor.h"
#include "fakesession.h"
#include "onedisplay.h"
#include "testreplayserver.h"
#include "testrtspserver.h"

namespace orrin {

/*! A stream over a FakeSession, with what it showed. Times are in milliseconds since 1970. */
class ReplayStream
{
public:
    ReplayStream(FakeSession &session, const StreamTiming &timing, int syncContextId = -1)
    {
        m_display = QSharedPointer<OneDisplay>::create();
        GuiSPMFactory factory(m_display);
        StreamProcessorParts parts;
        parts.channelUid = ChannelUID(77, 5);
        parts.outputs = factory.createOutputs();
        parts.findSession = [&session](unsigned long long) { return &session; };
        parts.timing = timing;
        parts.syncContextId = syncContextId;
        m_processor = QSharedPointer<StreamProcessor>(new StreamProcessor(std::move(parts)), &QObject::deleteLater);
        m_processor->start();
    }

    StreamProcessor &processor() { return *m_processor; }
    SPAbstractInputControl &control() { return *m_processor->inputControl(); }
    PlaybackState &state() { return *m_processor->playbackState(); }
    RecordingRenderer &renderer() const { return *m_display->renderer; }

    void jump(qint64 ms) { control().jump(ms * 3 / 10, 1); }
    void scrub(qint64 ms) { control().scrub(ms * 3 / 10, SPInputControlInterface::NoMark); }
    void play(double speed)
    {
        control().setSpeed(speed);
        control().play(SPInputControlInterface::FromHere, SPInputControlInterface::NoMark);
    }

    /*! The moments of the frames shown, by their pixels; -1 for one whose pixels say another time than the frame. */
    QList<qint64> times() const
    {
        QList<qint64> times;
        for (const VideoFrame &frame : std::as_const(renderer().frames))
            times.append(timeOf(frame));
        return times;
    }
    /*! Their numbers: one that is missing was shown by the stream, and replaced before the display was free. */
    QList<qint64> numbers() const
    {
        QList<qint64> numbers;
        for (const VideoFrame &frame : std::as_const(renderer().frames))
            numbers.append(qint64(frame.id()));
        return numbers;
    }
    /*! Whether each frame of the stream lies \a step behind the one before. */
    bool goesBy(qint64 step) const
    {
        const QList<qint64> all = times();
        const QList<qint64> ids = numbers();
        for (qsizetype i = 1; i < all.size(); ++i) {
            if (all[i] - all[i - 1] != step * (ids[i] - ids[i - 1]))
                return false;
        }
        return true;
    }
    /*! Of the last one; 0 before the first. */
    qint64 shown() const { return renderer().frames.isEmpty() ? 0 : timeOf(renderer().frames.last()); }
    void forget() { renderer().frames.clear(); }

private:
    static qint64 timeOf(const VideoFrame &frame)
    {
        const auto drawn = TestRecording::readTime(frame.imageRef());
        const qint64 told = (frame.imageRef().time() * 10 + 1) / 3;
        return drawn && qAbs(*drawn - told) <= 2 ? *drawn : -1;
    }

    QSharedPointer<OneDisplay> m_display;
    QSharedPointer<StreamProcessor> m_processor;
};

} // namespace orrin
