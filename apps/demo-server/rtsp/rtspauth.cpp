// SPDX-License-Identifier: GPL-3.0-or-later
#include "rtsp/rtspauth.h"

#include <gst/rtsp-server/rtsp-server.h>

namespace {

struct AuthData
{
    orrin::demo::RecorderInfo recorder;
    std::shared_ptr<const orrin::demo::Accounts> accounts;
};

struct OrrinRtspAuth
{
    GstRTSPAuth parent;
    AuthData *data;
};

struct OrrinRtspAuthClass
{
    GstRTSPAuthClass parent;
};

G_DEFINE_TYPE(OrrinRtspAuth, orrin_rtsp_auth, GST_TYPE_RTSP_AUTH)

constexpr const char *UserField = "orrin.user";

/*! The id in a path /camera/ID/PROFILE or /recording/ID/TRACK/PROFILE, or -1. */
int cameraId(const char *path)
{
    const QList<QByteArray> parts = QByteArray(path).split('/');
    bool valid = false;
    const bool ofCamera = parts.size() >= 3 && (parts.at(1) == "camera" || parts.at(1) == "recording");
    const int id = ofCamera ? parts.at(2).toInt(&valid) : -1;
    return valid ? id : -1;
}

bool isPermitted(const AuthData &data, GstRTSPContext *context)
{
    const char *name = context->token ? gst_rtsp_token_get_string(context->token, UserField) : nullptr;
    if (!name)
        return false;
    const QString user = QString::fromUtf8(name);
    if (data.accounts->refusal(data.recorder.id, user))
        return false;
    const char *path = context->uri ? context->uri->abspath : "";
    const auto account = data.accounts->user(user);
    if (g_str_has_prefix(path, "/recording/") && !(account && account->mayPlayBack()))
        return false;
    const orrin::demo::Camera *camera = data.recorder.camera(cameraId(path));
    return !camera || camera->permittedFor(user);
}

gboolean check(GstRTSPAuth *auth, GstRTSPContext *context, const gchar *what)
{
    if (!GST_RTSP_AUTH_CLASS(orrin_rtsp_auth_parent_class)->check(auth, context, what))
        return FALSE;
    if (g_strcmp0(what, GST_RTSP_AUTH_CHECK_MEDIA_FACTORY_ACCESS) != 0)
        return TRUE;
    if (isPermitted(*reinterpret_cast<OrrinRtspAuth *>(auth)->data, context))
        return TRUE;
    gst_rtsp_message_init_response(context->response, GST_RTSP_STS_FORBIDDEN,
                                   gst_rtsp_status_as_text(GST_RTSP_STS_FORBIDDEN), context->request);
    gst_rtsp_client_send_message(context->client, context->session, context->response);
    return FALSE;
}

void finalize(GObject *object)
{
    delete reinterpret_cast<OrrinRtspAuth *>(object)->data;
    G_OBJECT_CLASS(orrin_rtsp_auth_parent_class)->finalize(object);
}

void orrin_rtsp_auth_class_init(OrrinRtspAuthClass *type)
{
    GST_RTSP_AUTH_CLASS(type)->check = check;
    G_OBJECT_CLASS(type)->finalize = finalize;
}

void orrin_rtsp_auth_init(OrrinRtspAuth *auth)
{
    auth->data = nullptr;
}

} // namespace

namespace orrin::demo {

GstRTSPAuth *newRtspAuth(const RecorderInfo &recorder, std::shared_ptr<const Accounts> accounts)
{
    auto *auth = static_cast<OrrinRtspAuth *>(g_object_new(orrin_rtsp_auth_get_type(), nullptr));
    auth->data = new AuthData{recorder, accounts};
    GstRTSPAuth *result = GST_RTSP_AUTH(auth);
    gst_rtsp_auth_set_supported_methods(result, GST_RTSP_AUTH_DIGEST);
    gst_rtsp_auth_set_realm(result, recorder.name.toUtf8().constData());
    for (const User &user : accounts->users()) {
        const QByteArray name = user.name.toUtf8();
        GstRTSPToken *token = gst_rtsp_token_new(GST_RTSP_TOKEN_MEDIA_FACTORY_ROLE, G_TYPE_STRING, "user",
                                                 UserField, G_TYPE_STRING, name.constData(), nullptr);
        gst_rtsp_auth_add_digest(result, name.constData(), user.password.toUtf8().constData(), token);
        gst_rtsp_token_unref(token);
    }
    return result;
}

} // namespace orrin::demo
