// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/onvif/recordingreader.h"
#include "core/session/onvif/spanskeeper.h"

#include <contract/core/connection.h>

#include <QElapsedTimer>
#include <QHash>
#include <QObject>
#include <QPointer>
#include <QtTypes>

#include <chrono>

namespace orrin {

/*! The connection that streams of an ONVIF session show. Main thread; owned by the session.

    Bounds are those last learnt. Asking for them has them asked for again in the background, when they are older than the renewal. */
class OnvifConnection : public QObject, public Connection
{
    Q_OBJECT
public:
    explicit OnvifConnection(std::chrono::milliseconds renewal);
    ~OnvifConnection() override;

    QSharedPointer<TrackBounds> createTrackBounds(unsigned trackAndChannel) override;
    QSharedPointer<RecordedSpans> createRecordedSpans(int channelId, int trackId) override;
    long long getCachedServerUTCOffsetToClientUTCMSecs() const override { return m_clockOffsetMs; }

    void setClockOffset(qint64 offsetMs) { m_clockOffsetMs = offsetMs; }
    /*! Null while there is no connection, or nothing that records. */
    void setReader(RecordingReader *reader);

private:
    struct Known
    {
        TrackBounds bounds{0, 0};
        QElapsedTimer asked;
    };

    void refresh(unsigned address);

    const std::chrono::milliseconds m_renewal;
    qint64 m_clockOffsetMs = 0;
    QPointer<RecordingReader> m_reader;
    QHash<unsigned, Known> m_known;
    SpansKeeper m_spans;
};

} // namespace orrin
