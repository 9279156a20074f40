// SPDX-License-Identifier: GPL-3.0-or-later
#include "rtsp/livefactory.h"

#include "camera/audioencoder.h"
#include "rtsp/liveaudiosource.h"
#include "rtsp/livesource.h"
#include "rtsp/mediacaps.h"
#include "rtsp/wantedstream.h"

#include <gst/app/gstappsrc.h>
#include <gst/rtsp-server/rtsp-server.h>

#include <memory>

namespace {

struct OrrinLiveFactory
{
    GstRTSPMediaFactory parent;
    orrin::demo::LiveSettings *settings;
};

struct OrrinLiveFactoryClass
{
    GstRTSPMediaFactoryClass parent;
};

G_DEFINE_TYPE(OrrinLiveFactory, orrin_live_factory, GST_TYPE_RTSP_MEDIA_FACTORY)

constexpr const char *SourceKey = "orrin-live-source";
constexpr guint64 NtpEpochOffset = G_GUINT64_CONSTANT(2208988800) * GST_SECOND;

GstElement *createSource(const char *name, GstCaps *caps)
{
    GstElement *source = gst_element_factory_make("appsrc", name);
    if (source) {
        // The feeding thread watches the level itself: what was encoded must not be thrown away.
        g_object_set(source, "is-live", TRUE, "format", GST_FORMAT_TIME, "block", FALSE, "max-buffers",
                     guint64(0), "max-bytes", guint64(0), "caps", caps, nullptr);
    }
    gst_caps_unref(caps);
    return source;
}

/*! The payloader and the element that adds the header extension, in one bin under the name that the server
 * looks for. */
GstElement *createPayloader(const char *name, const char *payloader, const orrin::demo::DeviceClock &clock)
{
    GError *error = nullptr;
    const QByteArray line = QByteArray(payloader) + " ! rtponviftimestamp name=stamp" + orrin::demo::WantedStream::Outlet;
    GstElement *bin = gst_parse_bin_from_description(line.constData(), TRUE, &error);
    if (!bin) {
        g_warning("cannot build the live media: %s", error ? error->message : "unknown");
        g_clear_error(&error);
        return nullptr;
    }
    gst_object_set_name(GST_OBJECT(bin), name);
    // Buffers carry the capture time by the system's clock; the header extension carries it by the device's.
    GstElement *stamp = gst_bin_get_by_name(GST_BIN(bin), "stamp");
    const gint64 offset = clock.offset().count() * gint64(GST_SECOND);
    g_object_set(stamp, "ntp-offset", guint64(gint64(NtpEpochOffset) + offset), nullptr);
    gst_object_unref(stamp);
    return bin;
}

bool addStream(GstElement *bin, GstElement *source, GstElement *payloader)
{
    if (!source || !payloader) {
        g_clear_object(&source);
        g_clear_object(&payloader);
        return false;
    }
    gst_bin_add_many(GST_BIN(bin), source, payloader, nullptr);
    return gst_element_link(source, payloader);
}

GstElement *createElement(GstRTSPMediaFactory *factory, const GstRTSPUrl *)
{
    const auto &settings = *reinterpret_cast<OrrinLiveFactory *>(factory)->settings;
    const orrin::demo::Camera &camera = settings.camera;
    GstElement *bin = gst_bin_new(nullptr);
    bool complete =
        addStream(bin, createSource("source", orrin::demo::newVideoCaps(camera.codec, settings.profile)),
                  createPayloader("pay0", orrin::demo::videoPayloader(camera.codec), settings.clock));
    if (camera.audio != orrin::demo::AudioCodec::None) {
        const QByteArray config = orrin::demo::AudioEncoder(camera.audio, camera.number).config();
        complete =
            complete &&
            addStream(bin, createSource("audio", orrin::demo::newAudioCaps(camera.audio, config)),
                      createPayloader("pay1", orrin::demo::audioPayloader(camera.audio), settings.clock));
    }
    if (!complete)
        g_clear_object(&bin);
    return bin;
}

GstElement *createPipeline(GstRTSPMediaFactory *factory, GstRTSPMedia *media)
{
    GstElement *pipeline =
        GST_RTSP_MEDIA_FACTORY_CLASS(orrin_live_factory_parent_class)->create_pipeline(factory, media);
    if (!pipeline)
        return nullptr;
    // Running time is Unix time: presentation times need no translation, whenever the media starts.
    GstClock *clock =
        GST_CLOCK(g_object_new(GST_TYPE_SYSTEM_CLOCK, "clock-type", GST_CLOCK_TYPE_REALTIME, nullptr));
    gst_pipeline_use_clock(GST_PIPELINE(pipeline), clock);
    gst_object_unref(clock);
    gst_element_set_start_time(pipeline, GST_CLOCK_TIME_NONE);
    gst_element_set_base_time(pipeline, 0);
    return pipeline;
}

/*! A media's source, counted as long as it is there. */
struct CountedSource
{
    struct Count
    {
        explicit Count(std::shared_ptr<orrin::demo::LiveSources> all) : sources(std::move(all))
        {
            sources->add();
        }
        ~Count() { sources->remove(); }
        Count(const Count &) = delete;
        Count &operator=(const Count &) = delete;

        std::shared_ptr<orrin::demo::LiveSources> sources;
    };

    /*! \a sound is null where the camera hears nothing. */
    CountedSource(const orrin::demo::LiveSettings &settings, GstAppSrc *element, GstAppSrc *sound)
        : count(settings.sources)
        , source(settings.camera, settings.profile, settings.timeZone, settings.clock, settings.stalled,
                 element)
    {
        if (sound)
            audio = std::make_unique<orrin::demo::LiveAudioSource>(settings.camera, settings.clock,
                                                                   settings.stalled, sound);
    }

    // In this order: it counts until the sources' threads have ended.
    Count count;
    orrin::demo::LiveSource source;
    std::unique_ptr<orrin::demo::LiveAudioSource> audio;
};

void deleteSource(gpointer source)
{
    delete static_cast<CountedSource *>(source);
}

void configure(GstRTSPMediaFactory *factory, GstRTSPMedia *media)
{
    GST_RTSP_MEDIA_FACTORY_CLASS(orrin_live_factory_parent_class)->configure(factory, media);
    const auto &settings = *reinterpret_cast<OrrinLiveFactory *>(factory)->settings;
    GstElement *element = gst_rtsp_media_get_element(media);
    if (GstElement *source = gst_bin_get_by_name_recurse_up(GST_BIN(element), "source")) {
        GstElement *sound = gst_bin_get_by_name_recurse_up(GST_BIN(element), "audio");
        g_object_set_data_full(
            G_OBJECT(media), SourceKey,
            new CountedSource(settings, GST_APP_SRC(source), sound ? GST_APP_SRC(sound) : nullptr),
            deleteSource);
        gst_object_unref(source);
        g_clear_object(&sound);
    }
    gst_object_unref(element);
    g_signal_connect(media, "unprepared", G_CALLBACK(+[](GstRTSPMedia *unprepared, gpointer) {
                         g_object_set_data(G_OBJECT(unprepared), SourceKey, nullptr);
                     }),
                     nullptr);
}

void finalize(GObject *object)
{
    delete reinterpret_cast<OrrinLiveFactory *>(object)->settings;
    G_OBJECT_CLASS(orrin_live_factory_parent_class)->finalize(object);
}

void orrin_live_factory_class_init(OrrinLiveFactoryClass *type)
{
    auto *factoryClass = GST_RTSP_MEDIA_FACTORY_CLASS(type);
    factoryClass->create_element = createElement;
    factoryClass->create_pipeline = createPipeline;
    factoryClass->configure = configure;
    G_OBJECT_CLASS(type)->finalize = finalize;
}

void orrin_live_factory_init(OrrinLiveFactory *factory)
{
    factory->settings = nullptr;
}

} // namespace

namespace orrin::demo {

void LiveSources::add()
{
    const std::lock_guard lock(m_mutex);
    ++m_count;
}

void LiveSources::remove()
{
    const std::lock_guard lock(m_mutex);
    --m_count;
    m_changed.notify_all();
}

bool LiveSources::waitForNone(std::chrono::milliseconds time)
{
    std::unique_lock lock(m_mutex);
    return m_changed.wait_for(lock, time, [this] { return m_count == 0; });
}

GstRTSPMediaFactory *newLiveFactory(const LiveSettings &settings)
{
    auto *factory = static_cast<OrrinLiveFactory *>(g_object_new(orrin_live_factory_get_type(), nullptr));
    factory->settings = new LiveSettings(settings);
    GstRTSPMediaFactory *result = GST_RTSP_MEDIA_FACTORY(factory);
    gst_rtsp_media_factory_set_shared(result, TRUE);
    gst_rtsp_media_factory_set_latency(result, 0);
    gst_rtsp_media_factory_set_protocols(
        result, GstRTSPLowerTrans(GST_RTSP_LOWER_TRANS_TCP | GST_RTSP_LOWER_TRANS_TLS));
    return result;
}

void startLiveMedia(GstRTSPMedia *media)
{
    if (auto *held = static_cast<CountedSource *>(g_object_get_data(G_OBJECT(media), SourceKey))) {
        held->source.play();
        if (held->audio)
            held->audio->play();
    }
}

} // namespace orrin::demo
