// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/onvif/recordingreader.h"

#include <contract/core/recordedspans.h>

#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QSharedPointer>
#include <QTimer>
#include <QWeakPointer>

#include <chrono>
#include <deque>
#include <utility>

namespace orrin {

/*! Keeps the RecordedSpans of a session filled while somebody holds them. Main thread.

    The newest day is read first, then the week, then the rest; afterwards what has come since, at each renewal. One question at a time for each
    track. */
class SpansKeeper : public QObject
{
    Q_OBJECT
public:
    explicit SpansKeeper(std::chrono::milliseconds renewal, QObject *parent = nullptr);
    ~SpansKeeper() override;

    QSharedPointer<RecordedSpans> spans(int channelId, int trackId);
    /*! Null while there is no connection. */
    void setReader(RecordingReader *reader);

private:
    using Track = std::pair<int, int>;
    using Window = std::pair<qint64, qint64>;
    struct Entry
    {
        QWeakPointer<RecordedSpans> spans;
        QList<RecordedSpan> known;
        std::deque<Window> windows; // to be read
        qint64 readTo = 0;
        bool busy = false;
    };

    void renew();
    void update(Track track);
    void onPlace(Track track, const RecordingReader::Place &place);
    void readNext(Track track, const RecordingReader::Place &place);
    void onChanges(Track track, const RecordingReader::Place &place, Window window,
                   const std::optional<QList<recordingservice::DataChange>> &changes);
    void finish(Track track, bool available);

    QPointer<RecordingReader> m_reader;
    QHash<Track, Entry> m_entries;
    QTimer m_renewal;
};

} // namespace orrin
