// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "onvif/onvifservice.h"

#include <QList>

/*! Tokens of sources, configurations and profiles, as both media services use them. */
namespace orrin::demo::mediatokens {

/*! A camera's profile; the pointers are valid during the call. */
struct ProfileRef
{
    const Camera *camera = nullptr;
    const Profile *profile = nullptr;

    QString token() const;
    QString encoderToken() const;
    explicit operator bool() const { return profile != nullptr; }
};

QString source(const Camera &camera);
QString sourceConfiguration(const Camera &camera);

/*! The profiles of all cameras that are enabled and that \a user may see. */
QList<ProfileRef> profilesFor(const RecorderInfo &recorder, const User &user);

/*! The one of them with this token, or an empty one. */
ProfileRef profileFor(const RecorderInfo &recorder, const User &user, const QString &token);

/*! The address of \a path on the recorder's RTSP port, as the client reaches it. */
QString rtspUri(const OnvifContext &context, const HttpRequest &request, const QString &path);

/*! The address of the live stream, as the client reaches it. */
QString streamUri(const OnvifContext &context, const HttpRequest &request, const ProfileRef &ref);

} // namespace orrin::demo::mediatokens
