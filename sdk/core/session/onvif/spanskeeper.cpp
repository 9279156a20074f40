// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/onvif/spanskeeper.h"

#include <algorithm>

namespace orrin {

using recordingservice::DataChange;

namespace {

constexpr qint64 DayMs = 86'400'000;
constexpr qint64 WeekMs = 7 * DayMs;
// So much is read again, for devices that tell of the newest with delay.
constexpr qint64 OverlapMs = 300'000;

QList<RecordedSpan> spansOf(QList<DataChange> changes, const QString &track, qint64 fromMs, qint64 toMs)
{
    std::ranges::stable_sort(changes, [](const DataChange &a, const DataChange &b) {
        return a.isStartState != b.isStartState ? a.isStartState : a.ms < b.ms;
    });
    QList<RecordedSpan> spans;
    std::optional<qint64> begin;
    for (const DataChange &change : std::as_const(changes)) {
        if (change.track != track)
            continue;
        const qint64 at = change.isStartState ? fromMs : std::clamp(change.ms, fromMs, toMs);
        if (change.present && !begin)
            begin = at;
        else if (!change.present && begin)
            spans.append({*std::exchange(begin, std::nullopt), at});
    }
    if (begin)
        spans.append({*begin, toMs});
    return spans;
}

/*! What is known outside the window stays. */
void replace(QList<RecordedSpan> *known, qint64 fromMs, qint64 toMs, const QList<RecordedSpan> &fresh)
{
    QList<RecordedSpan> result = fresh;
    for (const RecordedSpan &span : std::as_const(*known)) {
        if (span.fromMs < fromMs)
            result.append({span.fromMs, std::min(span.toMs, fromMs)});
        if (span.toMs > toMs)
            result.append({std::max(span.fromMs, toMs), span.toMs});
    }
    *known = result;
}

} // namespace

SpansKeeper::SpansKeeper(std::chrono::milliseconds renewal, QObject *parent) : QObject(parent)
{
    m_renewal.setInterval(renewal);
    connect(&m_renewal, &QTimer::timeout, this, &SpansKeeper::renew);
}

SpansKeeper::~SpansKeeper() = default;

QSharedPointer<RecordedSpans> SpansKeeper::spans(int channelId, int trackId)
{
    const Track track{channelId, trackId};
    Entry &entry = m_entries[track];
    QSharedPointer<RecordedSpans> spans = entry.spans.toStrongRef();
    if (spans)
        return spans;
    spans = QSharedPointer<RecordedSpans>(new RecordedSpans, &QObject::deleteLater);
    // What was known when it was last held is told at once.
    if (entry.readTo != 0)
        spans->setSpans(entry.known);
    entry.spans = spans;
    update(track);
    if (!m_renewal.isActive())
        m_renewal.start();
    return spans;
}

void SpansKeeper::setReader(RecordingReader *reader)
{
    m_reader = reader;
    for (Entry &entry : m_entries)
        entry.busy = false;
    if (reader)
        renew();
}

void SpansKeeper::renew()
{
    bool held = false;
    const QList<Track> tracks = m_entries.keys();
    for (const Track &track : tracks) {
        if (m_entries[track].spans.isNull())
            continue;
        held = true;
        update(track);
    }
    if (!held)
        m_renewal.stop();
}

void SpansKeeper::update(Track track)
{
    Entry &entry = m_entries[track];
    if (!m_reader || std::exchange(entry.busy, true)) {
        if (!m_reader)
            entry.busy = false;
        return;
    }
    m_reader->whenKnown([self = QPointer<SpansKeeper>(this), track, reader = m_reader] {
        if (!self || !reader || self->m_reader != reader)
            return;
        if (reader->error()) {
            // Without an answer nothing is known of it.
            if (reader->error()->errorCode() == PlaybackError::StreamLost)
                self->m_entries[track].busy = false;
            else
                self->finish(track, false);
            return;
        }
        reader->refresh(track.first, track.second, StreamQuality::High,
                        [self, track, reader](const std::optional<RecordingReader::Place> &place) {
                            if (!self || self->m_reader != reader)
                                return;
                            if (place)
                                self->onPlace(track, *place);
                            else
                                self->finish(track, false);
                        });
    });
}

void SpansKeeper::onPlace(Track track, const RecordingReader::Place &place)
{
    Entry &entry = m_entries[track];
    const qint64 from = place.fromMs;
    const qint64 to = place.toMs;
    if (to <= from) {
        entry.known.clear();
        finish(track, true);
        return;
    }
    // The oldest material goes when the device needs the room.
    for (RecordedSpan &span : entry.known)
        span.fromMs = std::max(span.fromMs, from);
    if (entry.readTo == 0) {
        entry.windows = {{std::max(from, to - DayMs), to}};
        if (to - from > DayMs)
            entry.windows.push_back({std::max(from, to - WeekMs), to - DayMs});
        if (to - from > WeekMs)
            entry.windows.push_back({from, to - WeekMs});
    } else {
        const qint64 begin = std::max(from, entry.readTo - OverlapMs);
        entry.windows.push_front({std::min(begin, to - 1), to});
    }
    entry.readTo = to;
    readNext(track, place);
}

void SpansKeeper::readNext(Track track, const RecordingReader::Place &place)
{
    Entry &entry = m_entries[track];
    if (entry.windows.empty() || entry.spans.isNull()) {
        entry.busy = false;
        return;
    }
    const Window window = entry.windows.front();
    entry.windows.pop_front();
    m_reader->requestChanges(place, window.first, window.second,
                             [self = QPointer<SpansKeeper>(this), reader = m_reader, track, place,
                              window](const std::optional<QList<DataChange>> &changes) {
                                 if (self && self->m_reader == reader)
                                     self->onChanges(track, place, window, changes);
                             });
}

void SpansKeeper::onChanges(Track track, const RecordingReader::Place &place, Window window,
                            const std::optional<QList<DataChange>> &changes)
{
    Entry &entry = m_entries[track];
    const auto ofTrack = [&place](const DataChange &change) { return change.track == place.track; };
    if (!changes || std::ranges::none_of(*changes, ofTrack)) {
        // A device that tells of no gaps has none that anybody could know.
        replace(&entry.known, window.first, window.second, {{window.first, window.second}});
    } else {
        replace(&entry.known, window.first, window.second, spansOf(*changes, place.track, window.first, window.second));
    }
    const QPointer<SpansKeeper> guard(this);
    if (const auto spans = entry.spans.toStrongRef())
        spans->setSpans(entry.known);
    if (guard && m_reader)
        readNext(track, place);
}

void SpansKeeper::finish(Track track, bool available)
{
    Entry &entry = m_entries[track];
    entry.busy = false;
    entry.readTo = 0;
    const auto spans = entry.spans.toStrongRef();
    if (!spans)
        return;
    if (available)
        spans->setSpans(entry.known);
    else
        spans->setUnavailable();
}

} // namespace orrin
