// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/onvif/recordingcatalogue.h"

#include <algorithm>

namespace orrin {

using recordingservice::Recording;

namespace {

bool isVideo(TrackType::Flag type)
{
    return type == TrackType::Track1 || type == TrackType::Track2 || type == TrackType::Track3;
}

bool hasKind(const Recording &recording, recordingservice::Track::Kind kind)
{
    return std::ranges::any_of(recording.tracks, [kind](const auto &track) { return track.kind == kind; });
}

} // namespace

void RecordingCatalogue::assemble(const QList<Recording> &recordings, const QList<ChannelDescription> &channels,
                                  const QHash<QString, int> &channelsBySource, const QHash<QString, qint64> &pixels)
{
    m_recordings.clear();
    m_tracks.clear();
    QHash<int, QList<QString>> byChannel;
    for (const Recording &recording : recordings) {
        const bool hasVideo = recording.tracks.isEmpty() || hasKind(recording, recordingservice::Track::Kind::Video);
        int channel = channelsBySource.value(recording.sourceId, 0);
        if (channel == 0) {
            const auto named = std::ranges::find(channels, recording.sourceName, &ChannelDescription::name);
            channel = named == channels.cend() || recording.sourceName.isEmpty() ? 0 : named->id;
        }
        if (channel == 0 || !hasVideo)
            continue;
        m_recordings.insert(recording.token, recording);
        byChannel[channel].append(recording.token);
    }
    for (const ChannelDescription &channel : channels) {
        const QList<QString> tokens = byChannel.value(channel.id);
        const qsizetype videos = std::ranges::count_if(channel.tracks, [](const auto &track) { return isVideo(track.type); });
        if (tokens.isEmpty())
            continue;
        const qsizetype share = videos > 0 && tokens.size() >= videos ? tokens.size() / videos : 1;
        qsizetype at = 0;
        for (const TrackDescription &track : channel.tracks) {
            if (!isVideo(track.type)) {
                if (track.type == TrackType::Audio)
                    m_tracks.insert({channel.id, track.id}, {tokens.first(), tokens.first(), true});
                continue;
            }
            if (at >= tokens.size())
                break;
            const QList<QString> group = tokens.mid(at, share);
            at += share;
            // Without a word about sizes the device names the better one first.
            const auto size = [&pixels](const QString &token) { return pixels.value(token, 0); };
            const bool known = std::ranges::all_of(group, [&size](const QString &token) { return size(token) > 0; });
            const auto [low, high] = std::ranges::minmax_element(group, {}, size);
            m_tracks.insert({channel.id, track.id}, known ? Qualities{*high, *low} : Qualities{group.first(), group.last()});
        }
    }
}

void RecordingCatalogue::update(const Recording &recording)
{
    const auto found = m_recordings.find(recording.token);
    if (found != m_recordings.end())
        *found = recording;
}

std::optional<RecordingCatalogue::Place> RecordingCatalogue::place(int channelId, int trackId, StreamQuality quality) const
{
    const auto found = m_tracks.constFind({channelId, trackId});
    if (found == m_tracks.cend())
        return std::nullopt;
    const auto recording = m_recordings.constFind(quality == StreamQuality::Low ? found->low : found->high);
    if (recording == m_recordings.cend())
        return std::nullopt;
    Place place{recording->token, {}, recording->fromMs, recording->toMs};
    const auto kind = found->audio ? recordingservice::Track::Kind::Audio : recordingservice::Track::Kind::Video;
    const auto track = std::ranges::find(recording->tracks, kind, &recordingservice::Track::kind);
    if (track != recording->tracks.cend()) {
        place.track = track->token;
        if (track->toMs > track->fromMs) {
            place.fromMs = track->fromMs;
            place.toMs = track->toMs;
        }
    }
    return place;
}

} // namespace orrin
