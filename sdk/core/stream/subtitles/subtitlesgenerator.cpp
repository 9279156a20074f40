// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/modules/streamregistry.h"
#include "core/stream/subtitles/subtitletemplate.h"
#include "core/stream/subtitles/subtitlevalues.h"

#include <contract/codecs/videoframe.h>
#include <contract/core/abstractstreamprocessor.h>
#include <contract/core/channel.h>
#include <contract/core/connection.h>
#include <contract/core/server.h>
#include <contract/core/subtitlesgenerator.h>
#include <contract/util/time300.h>

#include <QPointer>

namespace orrin {

namespace {

// What the client knows of the end of a recording lags behind the recorder.
constexpr long long StillRecordingMs = 60'000;

bool isRecording(const AbstractStreamProcessor &stream, long long serverTimeMs)
{
    Connection *connection = stream.connection();
    const Channel *channel = stream.channel();
    if (!connection || !channel)
        return false;
    const QSharedPointer<TrackBounds> bounds =
        connection->createTrackBounds(stream.trackIdBase() | unsigned(channel->id()));
    if (!bounds || bounds->end() <= bounds->begin())
        return false;
    return serverTimeMs - time300ToDateTimeUTC(bounds->end()).toMSecsSinceEpoch() < StillRecordingMs;
}

SubtitleValues::Origin originOf(const AbstractStreamProcessor &stream)
{
    SubtitleValues::Origin origin;
    const Channel *channel = stream.channel();
    if (!channel)
        return origin;
    origin.cameraName = channel->name();
    origin.sortId = channel->sortId();
    origin.channelId = channel->id();
    if (Server *server = channel->server()) {
        origin.serverName = server->name();
        origin.serverId = server->id();
    }
    return origin;
}

} // namespace

class SubtitlesGeneratorPrivate
{
public:
    SubtitleTemplate subtitleTemplate;
    SubtitleValues values;
    QPointer<AbstractStreamProcessor> stream; // of the last frame
    bool plain = false;
};

SubtitlesGenerator::SubtitlesGenerator() : d(std::make_unique<SubtitlesGeneratorPrivate>()) {}

SubtitlesGenerator::~SubtitlesGenerator() = default;

void SubtitlesGenerator::compileSubtitleTemplate(const QString &subtitleTemplate, bool plain)
{
    d->subtitleTemplate = SubtitleTemplate::parse(subtitleTemplate);
    d->plain = plain;
}

void SubtitlesGenerator::setParameters(const VideoFrame &frame, long long serverTimeMs,
                                       long long clientTimeMs, StreamState state, int seekSpeed)
{
    if (!d->stream || d->stream->requestId().value != frame.streamId())
        d->stream = StreamRegistry::instance().stream(RequestId{frame.streamId()});
    SubtitleValues::Origin origin = d->stream ? originOf(*d->stream) : SubtitleValues::Origin();
    // Asking for the bounds may have the server asked: only for a template that tells.
    if (d->stream && d->subtitleTemplate.contains(SubtitleTag::Recording))
        origin.recording = isRecording(*d->stream, serverTimeMs);
    d->values = SubtitleValues(frame, origin, {serverTimeMs, clientTimeMs, state, seekSpeed});
}

QString SubtitlesGenerator::generate() const
{
    QString text;
    for (const SubtitleTemplate::Piece &piece : d->subtitleTemplate.pieces())
        text += d->values.text(piece, !d->plain);
    return text;
}

} // namespace orrin
