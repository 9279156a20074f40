// SPDX-License-Identifier: GPL-3.0-or-later
#include "onvif/mediatokens.h"

#include <QRegularExpression>

#include <algorithm>

namespace orrin::demo::mediatokens {

using namespace Qt::StringLiterals;

QString ProfileRef::token() const
{
    return u"P_%1_%2"_s.arg(QString::number(camera->id), profile->name);
}

QString ProfileRef::encoderToken() const
{
    return u"VEC_%1_%2"_s.arg(QString::number(camera->id), profile->name);
}

QString source(const Camera &camera)
{
    return u"VS_%1"_s.arg(camera.id);
}

QString sourceConfiguration(const Camera &camera)
{
    return u"VSC_%1"_s.arg(camera.id);
}

QList<ProfileRef> profilesFor(const RecorderInfo &recorder, const User &user)
{
    QList<ProfileRef> refs;
    for (const Camera &camera : recorder.cameras) {
        if (!camera.enabled || !camera.permittedFor(user.name))
            continue;
        for (const Profile &profile : camera.profiles)
            refs.append({&camera, &profile});
    }
    return refs;
}

ProfileRef profileFor(const RecorderInfo &recorder, const User &user, const QString &token)
{
    const auto refs = profilesFor(recorder, user);
    const auto found = std::ranges::find(refs, token, &ProfileRef::token);
    return found == refs.cend() ? ProfileRef() : *found;
}

QString rtspUri(const OnvifContext &context, const HttpRequest &request, const QString &path)
{
    static const QRegularExpression portAtEnd(u":[0-9]+$"_s);
    QString host = QString::fromLatin1(request.host);
    host.remove(portAtEnd);
    return u"%1://%2:%3%4"_s.arg(context.rtspTls ? u"rtsps"_s : u"rtsp"_s, host,
                                 QString::number(context.rtspPort()), path);
}

QString streamUri(const OnvifContext &context, const HttpRequest &request, const ProfileRef &ref)
{
    return rtspUri(context, request,
                   u"/camera/%1/%2"_s.arg(QString::number(ref.camera->id), ref.profile->name));
}

} // namespace orrin::demo::mediatokens
