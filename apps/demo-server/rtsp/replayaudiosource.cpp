// SPDX-License-Identifier: GPL-3.0-or-later
#include "rtsp/replayaudiosource.h"

#include "camera/audioencoder.h"
#include "rtsp/mediacaps.h"
#include "rtsp/wantedstream.h"

#include <gst/base/gstbasesrc.h>

#include <algorithm>
#include <atomic>
#include <thread>

namespace {

using orrin::demo::AudioEncoder;
using orrin::demo::ReplayControl;
using orrin::demo::ReplayPosition;
using orrin::demo::ReplaySettings;
using orrin::demo::Span;

constexpr guint64 NsPerMs = 1'000'000;
constexpr std::chrono::milliseconds WaitStep{20};
// Enough for the stream to be described.
constexpr int PacketsForNobody = 4;

struct State
{
    State(const ReplaySettings &replay, std::shared_ptr<ReplayPosition> shown)
        : settings(replay), position(std::move(shown)), encoder(replay.camera.audio, replay.camera.number)
    {
        next = AudioEncoder::packetAt(replay.camera.audio, replay.schedule.beginMs());
        endMs = replay.clock.nowMs();
    }

    ReplaySettings settings;
    std::shared_ptr<ReplayPosition> position;
    AudioEncoder encoder;
    orrin::demo::WantedStream wanted;
    std::atomic<bool> unlocked = false;
    std::int64_t next = 0;
    std::int64_t endMs = 0;
    bool sought = false;
    bool done = false;
    bool discontinuity = true;
    int given = 0;
};

struct OrrinReplayAudioSource
{
    GstBaseSrc parent;
    State *state;
};

struct OrrinReplayAudioSourceClass
{
    GstBaseSrcClass parent;
};

G_DEFINE_TYPE(OrrinReplayAudioSource, orrin_replay_audio_source, GST_TYPE_BASE_SRC)

State &stateOf(gpointer source)
{
    return *reinterpret_cast<OrrinReplayAudioSource *>(source)->state;
}

gboolean isSeekable(GstBaseSrc *)
{
    return TRUE;
}

gboolean seek(GstBaseSrc *source, GstSegment *segment)
{
    State &state = stateOf(source);
    const bool first = !state.sought && segment->start == 0;
    state.sought = !first;
    const std::int64_t nowMs = state.settings.clock.nowMs();
    std::int64_t beginMs =
        first ? state.settings.schedule.beginMs() : orrin::demo::unixMsOf(segment->start);
    state.endMs = nowMs;
    if (GST_CLOCK_TIME_IS_VALID(segment->stop))
        state.endMs = std::min(state.endMs, orrin::demo::unixMsOf(segment->stop));
    if (!first && state.settings.control->wrongRange) {
        beginMs -= ReplayControl::WrongByMs;
        state.endMs -= ReplayControl::WrongByMs;
    }
    state.next = AudioEncoder::packetAt(state.settings.camera.audio, beginMs);
    const bool keyFramesOnly = (segment->flags & GST_SEGMENT_FLAG_TRICKMODE_KEY_UNITS) != 0;
    state.done = segment->rate != 1.0 || keyFramesOnly;
    state.discontinuity = true;
    state.given = 0;
    segment->position = segment->rate >= 0 ? segment->start : segment->stop;
    return TRUE;
}

/*! Moves on to the next packet that lies in a recorded span and in the range. False at the end. */
bool advance(State &state)
{
    const auto codec = state.settings.camera.audio;
    const auto timeMs = AudioEncoder::timeNsOf(codec, state.next) / std::int64_t(NsPerMs);
    const auto span = state.settings.schedule.spanFrom(timeMs, state.settings.clock.nowMs());
    if (!span)
        return false;
    if (span->beginMs > timeMs) {
        // The first packet that lies in the span as a whole.
        state.next = AudioEncoder::packetAt(codec, span->beginMs - 1) + 1;
        state.discontinuity = true;
    }
    return AudioEncoder::timeNsOf(codec, state.next) / std::int64_t(NsPerMs) < state.endMs;
}

GstFlowReturn create(GstBaseSrc *source, guint64, guint, GstBuffer **result)
{
    State &state = stateOf(source);
    while (state.given >= PacketsForNobody && !state.wanted.isWanted(GST_ELEMENT(source))) {
        if (state.unlocked)
            return GST_FLOW_FLUSHING;
        std::this_thread::sleep_for(WaitStep);
    }
    // The server waits for a first packet of each stream before it answers DESCRIBE and PLAY, so there is
    // one even where there is no sound to give.
    const bool more = advance(state) && !state.done;
    if (!more && state.given > 0)
        return GST_FLOW_EOS;
    const auto codec = state.settings.camera.audio;
    const std::int64_t timeNs = AudioEncoder::timeNsOf(codec, state.next);
    const auto durationNs = AudioEncoder::timeNsOf(codec, state.next + 1) - timeNs;
    // The picture may not be asked for at all: then time itself is the pace.
    if (state.given++ > 0)
        state.position->waitFor(timeNs / std::int64_t(NsPerMs),
                                std::chrono::milliseconds(durationNs / std::int64_t(NsPerMs)));
    const auto data = state.encoder.packet(state.next);
    if (!data)
        return GST_FLOW_ERROR;
    GstBuffer *buffer = gst_buffer_new_memdup(data->constData(), gsize(data->size()));
    GST_BUFFER_PTS(buffer) = guint64(timeNs) + orrin::demo::NtpUnixSeconds * GST_SECOND;
    GST_BUFFER_DURATION(buffer) = guint64(durationNs);
    if (state.discontinuity)
        GST_BUFFER_FLAG_SET(buffer, GST_BUFFER_FLAG_DISCONT);
    state.discontinuity = false;
    ++state.next;
    *result = buffer;
    return GST_FLOW_OK;
}

gboolean query(GstBaseSrc *source, GstQuery *query)
{
    if (GST_QUERY_TYPE(query) == GST_QUERY_SEEKING) {
        gst_query_set_seeking(query, GST_FORMAT_TIME, TRUE, 0, gint64(GST_CLOCK_TIME_NONE));
        return TRUE;
    }
    if (GST_QUERY_TYPE(query) == GST_QUERY_DURATION) {
        const State &state = stateOf(source);
        const std::int64_t endMs = state.settings.schedule.endMs(state.settings.clock.nowMs());
        gst_query_set_duration(query, GST_FORMAT_TIME, gint64(orrin::demo::ntpNsOf(endMs)));
        return TRUE;
    }
    return GST_BASE_SRC_CLASS(orrin_replay_audio_source_parent_class)->query(source, query);
}

GstCaps *caps(GstBaseSrc *source, GstCaps *)
{
    const State &state = stateOf(source);
    return orrin::demo::newAudioCaps(state.settings.camera.audio, state.encoder.config());
}

gboolean unlock(GstBaseSrc *source)
{
    stateOf(source).unlocked = true;
    return TRUE;
}

gboolean unlockStop(GstBaseSrc *source)
{
    stateOf(source).unlocked = false;
    return TRUE;
}

void finalize(GObject *object)
{
    delete reinterpret_cast<OrrinReplayAudioSource *>(object)->state;
    G_OBJECT_CLASS(orrin_replay_audio_source_parent_class)->finalize(object);
}

void orrin_replay_audio_source_class_init(OrrinReplayAudioSourceClass *type)
{
    auto *base = GST_BASE_SRC_CLASS(type);
    base->is_seekable = isSeekable;
    base->do_seek = seek;
    base->create = create;
    base->query = query;
    base->get_caps = caps;
    base->unlock = unlock;
    base->unlock_stop = unlockStop;
    G_OBJECT_CLASS(type)->finalize = finalize;
    static GstStaticPadTemplate sourcePad =
        GST_STATIC_PAD_TEMPLATE("src", GST_PAD_SRC, GST_PAD_ALWAYS, GST_STATIC_CAPS_ANY);
    gst_element_class_add_static_pad_template(GST_ELEMENT_CLASS(type), &sourcePad);
    gst_element_class_set_static_metadata(GST_ELEMENT_CLASS(type), "Recorded audio", "Source/Audio",
                                          "Recorded audio as a function of time", "Orrin");
}

void orrin_replay_audio_source_init(OrrinReplayAudioSource *source)
{
    source->state = nullptr;
    gst_base_src_set_format(GST_BASE_SRC(source), GST_FORMAT_TIME);
    gst_base_src_set_live(GST_BASE_SRC(source), FALSE);
    gst_base_src_set_automatic_eos(GST_BASE_SRC(source), FALSE);
}

} // namespace

namespace orrin::demo {

GstElement *newReplayAudioSource(const ReplaySettings &settings, std::shared_ptr<ReplayPosition> position)
{
    auto *source = static_cast<OrrinReplayAudioSource *>(
        g_object_new(orrin_replay_audio_source_get_type(), nullptr));
    source->state = new State(settings, std::move(position));
    return GST_ELEMENT(source);
}

} // namespace orrin::demo
