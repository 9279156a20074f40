// SPDX-License-Identifier: GPL-3.0-or-later
#include "rtsp/replayfactory.h"

#include "rtsp/mediacaps.h"
#include "rtsp/replayaudiosource.h"
#include "rtsp/replaysource.h"
#include "rtsp/wantedstream.h"

#include <gst/rtsp-server/rtsp-server.h>

// These headers do not say themselves that they are C.
extern "C" {
#include <gst/rtsp-server/rtsp-onvif-media-factory.h>
#include <gst/rtsp-server/rtsp-onvif-media.h>
}

namespace {

using orrin::demo::ReplaySettings;

struct OrrinReplayFactory
{
    GstRTSPOnvifMediaFactory parent;
    ReplaySettings *settings;
};

struct OrrinReplayFactoryClass
{
    GstRTSPOnvifMediaFactoryClass parent;
};

G_DEFINE_TYPE(OrrinReplayFactory, orrin_replay_factory, GST_TYPE_RTSP_ONVIF_MEDIA_FACTORY)

/*! A bin of that name that packs what its queue gets into RTP with the header extension. */
GstElement *createPayloader(const char *name, const char *payloader)
{
    GError *error = nullptr;
    // Presentation times count from 1900 already; the queues keep little, so that a seek throws little away.
    const QByteArray line = QByteArray("queue max-size-buffers=4 ! ") + payloader +
                            " ! rtponviftimestamp name=stamp ntp-offset=0 set-e-bit=true set-t-bit=true "
                            "drop-out-of-segment=false ! queue max-size-buffers=32" +
                            orrin::demo::WantedStream::Outlet;
    GstElement *bin = gst_parse_bin_from_description(line.constData(), TRUE, &error);
    if (!bin) {
        g_warning("cannot build the replay media: %s", error ? error->message : "unknown");
        g_clear_error(&error);
        return nullptr;
    }
    gst_object_set_name(GST_OBJECT(bin), name);
    GstElement *stamp = gst_bin_get_by_name(GST_BIN(bin), "stamp");
    GstClock *clock = gst_system_clock_obtain();
    gst_element_set_clock(stamp, clock);
    gst_object_unref(clock);
    gst_object_unref(stamp);
    return bin;
}

bool addStream(GstElement *top, GstElement *source, GstElement *payloader)
{
    if (!source || !payloader) {
        g_clear_object(&source);
        g_clear_object(&payloader);
        return false;
    }
    gst_bin_add_many(GST_BIN(top), source, payloader, nullptr);
    return gst_element_link(source, payloader);
}

GstElement *createElement(GstRTSPMediaFactory *factory, const GstRTSPUrl *)
{
    const ReplaySettings &settings = *reinterpret_cast<OrrinReplayFactory *>(factory)->settings;
    const auto position = std::make_shared<orrin::demo::ReplayPosition>();
    GstElement *top = gst_bin_new(nullptr);
    bool complete = addStream(top, orrin::demo::newReplaySource(settings, position),
                              createPayloader("pay0", orrin::demo::videoPayloader(settings.camera.codec)));
    if (settings.camera.audio != orrin::demo::AudioCodec::None)
        complete = complete &&
                   addStream(top, orrin::demo::newReplayAudioSource(settings, position),
                             createPayloader("pay1", orrin::demo::audioPayloader(settings.camera.audio)));
    if (!complete)
        g_clear_object(&top);
    return top;
}

void finalize(GObject *object)
{
    delete reinterpret_cast<OrrinReplayFactory *>(object)->settings;
    G_OBJECT_CLASS(orrin_replay_factory_parent_class)->finalize(object);
}

void orrin_replay_factory_class_init(OrrinReplayFactoryClass *type)
{
    GST_RTSP_MEDIA_FACTORY_CLASS(type)->create_element = createElement;
    G_OBJECT_CLASS(type)->finalize = finalize;
}

void orrin_replay_factory_init(OrrinReplayFactory *factory)
{
    factory->settings = nullptr;
}

} // namespace

namespace orrin::demo {

GstRTSPMediaFactory *newReplayFactory(const ReplaySettings &settings)
{
    auto *factory =
        static_cast<OrrinReplayFactory *>(g_object_new(orrin_replay_factory_get_type(), nullptr));
    factory->settings = new ReplaySettings(settings);
    GstRTSPMediaFactory *result = GST_RTSP_MEDIA_FACTORY(factory);
    gst_rtsp_media_factory_set_media_gtype(result, GST_TYPE_RTSP_ONVIF_MEDIA);
    gst_rtsp_onvif_media_factory_set_replay_support(GST_RTSP_ONVIF_MEDIA_FACTORY(factory), TRUE);
    gst_rtsp_media_factory_set_shared(result, FALSE);
    gst_rtsp_media_factory_set_protocols(
        result, GstRTSPLowerTrans(GST_RTSP_LOWER_TRANS_TCP | GST_RTSP_LOWER_TRANS_TLS));
    return result;
}

} // namespace orrin::demo
