// SPDX-License-Identifier: GPL-3.0-or-later
#include "rtsp/rtspserver.h"

#include "recordings/recordings.h"
#include "rtsp/livefactory.h"
#include "rtsp/replayfactory.h"
#include "rtsp/rtspauth.h"
#include "rtsp/samplepull.h"

#include <gio/gio.h>
#include <gst/rtsp-server/rtsp-server.h>

// These headers do not say themselves that they are C.
extern "C" {
#include <gst/rtsp-server/rtsp-onvif-media.h>
#include <gst/rtsp-server/rtsp-onvif-server.h>
}

#include <QRandomGenerator>

#include <atomic>

namespace orrin::demo {

using namespace Qt::StringLiterals;

namespace {

constexpr guint GarbageIntervalMs = 200;
constexpr guint CleanupIntervalMs = 2000;
constexpr guint MaximumSessions = 256;
constexpr qsizetype GarbageSize = 2000;
// A request of one client may wait for the first frame of a recording; the others go on meanwhile.
constexpr int ClientThreads = 8;

/*! A range that replaces one under way begins from a pause, whether the client asked for it or not: what is still on its way does not get
 * between the flush and the first frame. */
GstRTSPStatusCode pauseRecording(GstRTSPClient *, GstRTSPContext *context, gpointer)
{
    if (context->media && GST_IS_RTSP_ONVIF_MEDIA(context->media) &&
        gst_rtsp_session_media_get_rtsp_state(context->sessmedia) == GST_RTSP_STATE_PLAYING) {
        gst_rtsp_session_media_set_state(context->sessmedia, GST_STATE_PAUSED);
        gst_rtsp_session_media_set_rtsp_state(context->sessmedia, GST_RTSP_STATE_READY);
    }
    return GST_RTSP_STS_OK;
}

void clientConnected(GstRTSPServer *, GstRTSPClient *client, gpointer)
{
    g_signal_connect(client, "pre-play-request", G_CALLBACK(pauseRecording), nullptr);
    g_signal_connect(client, "play-request",
                     G_CALLBACK(+[](GstRTSPClient *, GstRTSPContext *context, gpointer) {
                         if (context->media)
                             startLiveMedia(context->media);
                     }),
                     nullptr);
}

void addFactory(GstRTSPMountPoints *mounts, const QByteArray &path, GstRTSPMediaFactory *factory)
{
    gst_rtsp_media_factory_add_role(factory, "user", GST_RTSP_PERM_MEDIA_FACTORY_ACCESS, G_TYPE_BOOLEAN, TRUE,
                                    GST_RTSP_PERM_MEDIA_FACTORY_CONSTRUCT, G_TYPE_BOOLEAN, TRUE, nullptr);
    gst_rtsp_mount_points_add_factory(mounts, path.constData(), factory);
}

/*! True when the session has set up a recording. */
bool replays(GstRTSPSession *session)
{
    bool found = false;
    GList *all = gst_rtsp_session_filter(session, nullptr, nullptr);
    for (GList *each = all; each; each = each->next) {
        GstRTSPMedia *media = gst_rtsp_session_media_get_media(GST_RTSP_SESSION_MEDIA(each->data));
        found = found || GST_IS_RTSP_ONVIF_MEDIA(media);
    }
    g_list_free_full(all, g_object_unref);
    return found;
}

quint16 boundPort(GSocket *socket)
{
    GSocketAddress *address = g_socket_get_local_address(socket, nullptr);
    const guint16 port = G_IS_INET_SOCKET_ADDRESS(address)
                             ? g_inet_socket_address_get_port(G_INET_SOCKET_ADDRESS(address))
                             : 0;
    g_clear_object(&address);
    return port;
}

GstRTSPFilterResult removeClient(GstRTSPServer *, GstRTSPClient *, gpointer)
{
    return GST_RTSP_FILTER_REMOVE;
}

GstRTSPFilterResult sendGarbage(GstRTSPServer *, GstRTSPClient *client, gpointer)
{
    // The reason text of a response is sent as it is: an end of the header in it puts the rest into the
    // stream with nothing around it.
    QByteArray reason = "OK\r\n\r\n";
    for (qsizetype i = 0; i < GarbageSize; ++i)
        reason += char(QRandomGenerator::global()->bounded(1, 256));
    GstRTSPMessage *message = nullptr;
    gst_rtsp_message_new_response(&message, GST_RTSP_STS_OK, reason.constData(), nullptr);
    gst_rtsp_client_send_message(client, nullptr, message);
    gst_rtsp_message_free(message);
    return GST_RTSP_FILTER_KEEP;
}

} // namespace

struct RtspServer::Private
{
    GlibThread &thread;
    Settings settings;
    QByteArray timeZone;
    qint64 startedMs = 0;
    std::shared_ptr<ReplayControl> replay = std::make_shared<ReplayControl>();
    GstRTSPServer *server = nullptr;
    GstRTSPAuth *auth = nullptr;
    GSource *listener = nullptr;
    GSource *garbage = nullptr;
    GSource *cleanup = nullptr;
    std::atomic<quint16> port = 0;
    std::shared_ptr<LiveSources> sources = std::make_shared<LiveSources>();
    std::shared_ptr<std::atomic<bool>> stalled = std::make_shared<std::atomic<bool>>(false);

    void mount(const Camera &camera);
    void mountRecordings(GstRTSPMountPoints *mounts, const Camera &camera);
    void startCleanup();
    void destroy(GSource *&source);
};

void RtspServer::Private::mount(const Camera &camera)
{
    GstRTSPMountPoints *mounts = gst_rtsp_server_get_mount_points(server);
    for (const Profile &profile : camera.profiles) {
        const QByteArray path = u"/camera/%1/%2"_s.arg(QString::number(camera.id), profile.name).toUtf8();
        gst_rtsp_mount_points_remove_factory(mounts, path.constData());
        if (!camera.enabled)
            continue;
        addFactory(mounts, path,
                   newLiveFactory({camera, profile, timeZone, settings.clock, stalled, sources}));
    }
    mountRecordings(mounts, camera);
    g_object_unref(mounts);
}

void RtspServer::Private::mountRecordings(GstRTSPMountPoints *mounts, const Camera &camera)
{
    RecorderInfo times;
    times.startedMs = startedMs;
    const auto refs = recordings::recordingsOf(camera);
    for (const recordings::Ref &ref : refs) {
        const QByteArray path = ref.path().toUtf8();
        gst_rtsp_mount_points_remove_factory(mounts, path.constData());
        if (camera.enabled)
            addFactory(mounts, path,
                       newReplayFactory({camera, *ref.profile, timeZone, ref.schedule(times), settings.clock,
                                         settings.cache, replay}));
    }
}

void RtspServer::Private::startCleanup()
{
    GstRTSPSessionPool *pool = gst_rtsp_server_get_session_pool(server);
    gst_rtsp_session_pool_set_max_sessions(pool, MaximumSessions);
    // Sessions whose client is silent for their timeout end only when somebody looks.
    cleanup = g_timeout_source_new(CleanupIntervalMs);
    g_source_set_callback(
        cleanup,
        [](gpointer sessions) -> gboolean {
            gst_rtsp_session_pool_cleanup(GST_RTSP_SESSION_POOL(sessions));
            return G_SOURCE_CONTINUE;
        },
        pool, g_object_unref);
    g_source_attach(cleanup, thread.context());
}

void RtspServer::Private::destroy(GSource *&source)
{
    if (!source)
        return;
    g_source_destroy(source);
    g_source_unref(source);
    source = nullptr;
}

RtspServer::RtspServer(GlibThread &thread, const RecorderInfo &recorder,
                       std::shared_ptr<const Accounts> accounts, const Settings &settings)
    : d(new Private{thread, settings, recorder.timeZone, recorder.startedMs})
{
    gst_init(nullptr, nullptr);
    if (!samplePullNeverWaits())
        qWarning("recorded video may get stuck at a seek: the RTSP library uses another way to its packets");
    d->thread.run([&] {
        d->server = gst_rtsp_onvif_server_new();
        GstRTSPThreadPool *threads = gst_rtsp_server_get_thread_pool(d->server);
        gst_rtsp_thread_pool_set_max_threads(threads, ClientThreads);
        g_object_unref(threads);
        gst_rtsp_server_set_address(d->server, settings.address.toUtf8().constData());
        d->auth = newRtspAuth(recorder, accounts);
        gst_rtsp_server_set_auth(d->server, d->auth);
        g_signal_connect(d->server, "client-connected", G_CALLBACK(clientConnected), nullptr);
        for (const Camera &camera : recorder.cameras)
            d->mount(camera);
        d->startCleanup();
    });
}

RtspServer::~RtspServer()
{
    close();
    // Connections end in threads of their own; what draws pictures must be gone before the application is.
    d->sources->waitForNone(std::chrono::seconds(5));
    d->thread.run([this] {
        d->destroy(d->garbage);
        d->destroy(d->cleanup);
        g_object_unref(d->auth);
        g_object_unref(d->server);
    });
}

bool RtspServer::listen(quint16 port, QString *error)
{
    close();
    bool listening = false;
    d->thread.run([&] {
        gst_rtsp_server_set_service(d->server, QByteArray::number(port).constData());
        GError *reason = nullptr;
        GSocket *socket = gst_rtsp_server_create_socket(d->server, nullptr, &reason);
        if (!socket) {
            *error = u"cannot listen for RTSP on %1 port %2: %3"_s.arg(
                d->settings.address, QString::number(port),
                QString::fromUtf8(reason ? reason->message : "unknown"));
            g_clear_error(&reason);
            return;
        }
        d->port = boundPort(socket);
        d->listener = g_socket_create_source(socket, G_IO_IN, nullptr);
        g_source_set_callback(d->listener, G_SOURCE_FUNC(gst_rtsp_server_io_func), g_object_ref(d->server),
                              g_object_unref);
        g_source_attach(d->listener, d->thread.context());
        g_object_unref(socket);
        listening = true;
    });
    return listening;
}

void RtspServer::close()
{
    if (d->port == 0)
        return;
    d->thread.run([this] { d->destroy(d->listener); });
    d->port = 0;
    dropConnections();
}

quint16 RtspServer::port() const
{
    return d->port;
}

void RtspServer::setIdentity(const TlsIdentity &identity)
{
    if (!d->settings.tls)
        return;
    d->thread.run([&] {
        const QByteArray pem = identity.certificatePem() + identity.keyPem();
        GError *error = nullptr;
        GTlsCertificate *certificate = g_tls_certificate_new_from_pem(pem.constData(), pem.size(), &error);
        if (!certificate) {
            qWarning("the RTSP server cannot use its certificate: %s", error ? error->message : "unknown");
            g_clear_error(&error);
            return;
        }
        gst_rtsp_auth_set_tls_certificate(d->auth, certificate);
        g_object_unref(certificate);
    });
}

void RtspServer::setCamera(const Camera &camera)
{
    d->thread.run([&] { d->mount(camera); });
}

void RtspServer::dropConnections()
{
    d->thread.run([this] { gst_rtsp_server_client_filter(d->server, removeClient, nullptr); });
}

void RtspServer::setStalled(bool stalled)
{
    *d->stalled = stalled;
}

void RtspServer::setGarbage(bool on)
{
    d->thread.run([this, on] {
        d->destroy(d->garbage);
        if (!on)
            return;
        d->garbage = g_timeout_source_new(GarbageIntervalMs);
        g_source_set_callback(
            d->garbage,
            [](gpointer server) -> gboolean {
                gst_rtsp_server_client_filter(GST_RTSP_SERVER(server), sendGarbage, nullptr);
                return G_SOURCE_CONTINUE;
            },
            d->server, nullptr);
        g_source_attach(d->garbage, d->thread.context());
    });
}

ReplayControl &RtspServer::replayControl()
{
    return *d->replay;
}

void RtspServer::dropReplaySessions()
{
    d->thread.run([this] {
        GstRTSPSessionPool *pool = gst_rtsp_server_get_session_pool(d->server);
        GList *sessions = gst_rtsp_session_pool_filter(pool, nullptr, nullptr);
        for (GList *session = sessions; session; session = session->next) {
            if (replays(GST_RTSP_SESSION(session->data)))
                gst_rtsp_session_pool_remove(pool, GST_RTSP_SESSION(session->data));
        }
        g_list_free_full(sessions, g_object_unref);
        g_object_unref(pool);
    });
}

RtspServer::Counts RtspServer::counts()
{
    Counts counts;
    d->thread.run([&] {
        GList *clients = gst_rtsp_server_client_filter(d->server, nullptr, nullptr);
        for (GList *client = clients; client; client = client->next) {
            ++counts.connections;
            GList *sessions = gst_rtsp_client_session_filter(GST_RTSP_CLIENT(client->data), nullptr, nullptr);
            for (GList *session = sessions; session; session = session->next) {
                ++counts.sessions;
                GList *media = gst_rtsp_session_filter(GST_RTSP_SESSION(session->data), nullptr, nullptr);
                counts.media += int(g_list_length(media));
                g_list_free_full(media, g_object_unref);
            }
            g_list_free_full(sessions, g_object_unref);
        }
        g_list_free_full(clients, g_object_unref);
    });
    return counts;
}

} // namespace orrin::demo
