// SPDX-License-Identifier: GPL-3.0-or-later
#include "rtsp/replaysource.h"

#include "recordings/recordedvideo.h"
#include "rtsp/replaycursor.h"
#include "rtsp/mediacaps.h"
#include "rtsp/wantedstream.h"

extern "C" {
#include <libavcodec/packet.h>
}

#include <gst/base/gstbasesrc.h>

#include <algorithm>
#include <atomic>
#include <thread>

namespace {

using orrin::demo::GopCache;
using orrin::demo::RecordedVideo;
using orrin::demo::ReplayControl;
using orrin::demo::ReplayCursor;
using orrin::demo::ReplayPosition;
using orrin::demo::ReplaySettings;

constexpr std::chrono::milliseconds WaitStep{20};

struct State
{
    State(const ReplaySettings &replay, std::shared_ptr<ReplayPosition> shown)
        : settings(replay)
        , position(std::move(shown))
        , video(replay.camera, replay.profile, replay.timeZone, replay.cache)
        , cursor(replay.schedule, replay.clock, replay.profile.rate)
    {
        cursor.start({replay.schedule.beginMs(), replay.clock.nowMs()});
    }

    ReplaySettings settings;
    std::shared_ptr<ReplayPosition> position;
    RecordedVideo video;
    ReplayCursor cursor;
    orrin::demo::WantedStream wanted;
    std::atomic<bool> unlocked = false;
    std::atomic<guint64> intervalNs = 0;
    int given = 0; // frames since the last seek
    bool sought = false;
};

struct OrrinReplaySource
{
    GstBaseSrc parent;
    State *state;
};

struct OrrinReplaySourceClass
{
    GstBaseSrcClass parent;
};

G_DEFINE_TYPE(OrrinReplaySource, orrin_replay_source, GST_TYPE_BASE_SRC)

State &stateOf(gpointer source)
{
    return *reinterpret_cast<OrrinReplaySource *>(source)->state;
}

gboolean isSeekable(GstBaseSrc *)
{
    return TRUE;
}

void waitBeforeAnswer(State &state)
{
    const auto end = std::chrono::steady_clock::now() +
                     std::chrono::milliseconds(state.settings.control->lateMs.load());
    while (std::chrono::steady_clock::now() < end && state.settings.control->lateMs > 0)
        std::this_thread::sleep_for(WaitStep);
}

gboolean seek(GstBaseSrc *source, GstSegment *segment)
{
    State &state = stateOf(source);
    const bool first = !state.sought && segment->start == 0;
    state.sought = !first;
    state.given = 0;
    ReplayCursor::Request request;
    const std::int64_t beginMs = state.settings.schedule.beginMs();
    const std::int64_t nowMs = state.settings.clock.nowMs();
    // Before any seek of a client, the media shows its beginning so that it can be described.
    request.beginMs = first ? beginMs : orrin::demo::unixMsOf(segment->start);
    request.endMs = nowMs;
    if (GST_CLOCK_TIME_IS_VALID(segment->stop))
        request.endMs = std::min(request.endMs, orrin::demo::unixMsOf(segment->stop));
    request.backward = segment->rate < 0;
    request.keyFramesOnly = (segment->flags & GST_SEGMENT_FLAG_TRICKMODE_KEY_UNITS) != 0;
    request.intervalMs = std::int64_t(state.intervalNs / GST_MSECOND);
    if (!first) {
        waitBeforeAnswer(state);
        if (state.settings.control->wrongRange) {
            request.beginMs -= ReplayControl::WrongByMs;
            request.endMs -= ReplayControl::WrongByMs;
        }
    }
    state.cursor.start(request);
    // The frame at the very end of a range that goes backward is its first one.
    if (request.backward && GST_CLOCK_TIME_IS_VALID(segment->stop))
        segment->stop += GST_MSECOND;
    segment->position = segment->rate >= 0 ? segment->start : segment->stop;
    return TRUE;
}

gboolean event(GstBaseSrc *source, GstEvent *event)
{
    if (GST_EVENT_TYPE(event) == GST_EVENT_SEEK) {
        GstClockTime interval = 0;
        gst_event_parse_seek_trickmode_interval(event, &interval);
        stateOf(source).intervalNs = interval;
    }
    return GST_BASE_SRC_CLASS(orrin_replay_source_parent_class)->event(source, event);
}

GstBuffer *bufferOf(const GopCache::PacketRef &packet)
{
    auto *held = new GopCache::PacketRef(packet);
    return gst_buffer_new_wrapped_full(
        GST_MEMORY_FLAG_READONLY, packet->data, gsize(packet->size), 0, gsize(packet->size), held,
        [](gpointer data) { delete static_cast<GopCache::PacketRef *>(data); });
}

/*! True while nothing is to be sent: on command, or because nobody has set the stream up. */
bool waits(GstBaseSrc *source, State &state)
{
    const bool silent = state.sought && state.settings.control->silent;
    return state.given >= ReplayControl::FramesBeforeSilence &&
           (silent || !state.wanted.isWanted(GST_ELEMENT(source)));
}

GstFlowReturn create(GstBaseSrc *source, guint64, guint, GstBuffer **result)
{
    State &state = stateOf(source);
    while (waits(source, state)) {
        if (state.unlocked)
            return GST_FLOW_FLUSHING;
        std::this_thread::sleep_for(WaitStep);
    }
    auto position = state.cursor.next();
    if (!position && !state.sought && state.given == 0) {
        // Nothing was recorded: one picture all the same, so that the media can be described.
        const std::int64_t gop = RecordedVideo::gopAt(state.settings.schedule.beginMs());
        position = ReplayCursor::Position{gop, 0, state.video.timeOf(gop, 0), true};
    }
    if (!position)
        return GST_FLOW_EOS;
    const GopCache::PacketRef packet = state.video.frame(position->gop, position->index);
    if (!packet)
        return GST_FLOW_ERROR;
    ++state.given;
    GstBuffer *buffer = bufferOf(packet);
    GST_BUFFER_PTS(buffer) = GST_BUFFER_DTS(buffer) = orrin::demo::ntpNsOf(position->timeMs);
    GST_BUFFER_DURATION(buffer) = GST_SECOND / guint64(state.settings.profile.rate);
    if (position->index > 0 && state.settings.camera.codec != orrin::demo::VideoCodec::Mjpeg)
        GST_BUFFER_FLAG_SET(buffer, GST_BUFFER_FLAG_DELTA_UNIT);
    if (position->discontinuity)
        GST_BUFFER_FLAG_SET(buffer, GST_BUFFER_FLAG_DISCONT);
    state.position->set(position->timeMs);
    *result = buffer;
    return GST_FLOW_OK;
}

gboolean query(GstBaseSrc *source, GstQuery *query)
{
    const State &state = stateOf(source);
    if (GST_QUERY_TYPE(query) == GST_QUERY_SEEKING) {
        gst_query_set_seeking(query, GST_FORMAT_TIME, TRUE, 0, gint64(GST_CLOCK_TIME_NONE));
        return TRUE;
    }
    if (GST_QUERY_TYPE(query) == GST_QUERY_DURATION) {
        const std::int64_t endMs = state.settings.schedule.endMs(state.settings.clock.nowMs());
        gst_query_set_duration(query, GST_FORMAT_TIME, gint64(orrin::demo::ntpNsOf(endMs)));
        return TRUE;
    }
    return GST_BASE_SRC_CLASS(orrin_replay_source_parent_class)->query(source, query);
}

GstCaps *caps(GstBaseSrc *source, GstCaps *)
{
    const State &state = stateOf(source);
    return orrin::demo::newVideoCaps(state.settings.camera.codec, state.settings.profile);
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
    delete reinterpret_cast<OrrinReplaySource *>(object)->state;
    G_OBJECT_CLASS(orrin_replay_source_parent_class)->finalize(object);
}

void orrin_replay_source_class_init(OrrinReplaySourceClass *type)
{
    auto *base = GST_BASE_SRC_CLASS(type);
    base->is_seekable = isSeekable;
    base->do_seek = seek;
    base->event = event;
    base->create = create;
    base->query = query;
    base->get_caps = caps;
    base->unlock = unlock;
    base->unlock_stop = unlockStop;
    G_OBJECT_CLASS(type)->finalize = finalize;
    static GstStaticPadTemplate sourcePad =
        GST_STATIC_PAD_TEMPLATE("src", GST_PAD_SRC, GST_PAD_ALWAYS, GST_STATIC_CAPS_ANY);
    gst_element_class_add_static_pad_template(GST_ELEMENT_CLASS(type), &sourcePad);
    gst_element_class_set_static_metadata(GST_ELEMENT_CLASS(type), "Recorded video", "Source/Video",
                                          "Recorded video as a function of time", "Orrin");
}

void orrin_replay_source_init(OrrinReplaySource *source)
{
    source->state = nullptr;
    gst_base_src_set_format(GST_BASE_SRC(source), GST_FORMAT_TIME);
    gst_base_src_set_live(GST_BASE_SRC(source), FALSE);
    // The end of a range does not end the media: another PLAY may follow.
    gst_base_src_set_automatic_eos(GST_BASE_SRC(source), FALSE);
}

} // namespace

namespace orrin::demo {

GstElement *newReplaySource(const ReplaySettings &settings, std::shared_ptr<ReplayPosition> position)
{
    auto *source =
        static_cast<OrrinReplaySource *>(g_object_new(orrin_replay_source_get_type(), nullptr));
    source->state = new State(settings, std::move(position));
    return GST_ELEMENT(source);
}

} // namespace orrin::demo
