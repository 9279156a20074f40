// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/onvif/mediaservice.h"

#include <contract/core/mask.h>

#include <QHostAddress>

#include <algorithm>
#include <cmath>

namespace orrin::mediaservice {

namespace {

/*! The child of \a profile that configures \a what; the newer service puts them all below one element. */
const XmlElement &configuration(const XmlElement &profile, QStringView newName, QStringView oldName)
{
    const XmlElement &found = profile.child(u"Configurations").child(newName);
    return found.isNull() ? profile.child(oldName) : found;
}

bool isOnlyReachableFromInside(const QHostAddress &address)
{
    return address.isLoopback() || address.isLinkLocal() || address.isPrivateUse() || address.isBroadcast() ||
           address == QHostAddress(QHostAddress::AnyIPv4) || address == QHostAddress(QHostAddress::AnyIPv6);
}

/*! ONVIF counts from the centre, -1 to 1, upwards; the mask from the top left, 0 to 1. */
double fraction(const QString &text, bool upwards)
{
    bool ok = false;
    const double value = text.toDouble(&ok);
    if (!ok || !std::isfinite(value))
        return 0.0;
    return std::clamp(upwards ? (1.0 - value) / 2.0 : (value + 1.0) / 2.0, 0.0, 1.0);
}

PtzTarget ptzOf(const Profile &profile)
{
    return {profile.token, profile.ptzConfiguration, profile.ptzNode, profile.sourceToken};
}

} // namespace

QList<Profile> readProfiles(const XmlElement &answer)
{
    QList<Profile> profiles;
    for (const XmlElement *element : answer.all(u"Profiles")) {
        if (profiles.size() >= ProfileLimit)
            break;
        const XmlElement &source = configuration(*element, u"VideoSource", u"VideoSourceConfiguration");
        const XmlElement &encoder = configuration(*element, u"VideoEncoder", u"VideoEncoderConfiguration");
        Profile profile;
        profile.token = element->attribute(u"token");
        profile.sourceToken = source.child(u"SourceToken").value();
        if (profile.token.isEmpty() || profile.sourceToken.isEmpty() || encoder.isNull())
            continue;
        profile.sourceConfiguration = source.attribute(u"token");
        profile.sourceName = source.child(u"Name").value();
        profile.width = encoder.at({u"Resolution", u"Width"}).value().toInt();
        profile.height = encoder.at({u"Resolution", u"Height"}).value().toInt();
        profile.hasAudio = !configuration(*element, u"AudioEncoder", u"AudioEncoderConfiguration").isNull();
        const XmlElement &ptz = configuration(*element, u"PTZ", u"PTZConfiguration");
        profile.hasPtz = !ptz.isNull();
        profile.ptzConfiguration = ptz.attribute(u"token");
        profile.ptzNode = ptz.child(u"NodeToken").value();
        profiles.append(profile);
    }
    return profiles;
}

QList<Source> sourcesOf(const QList<Profile> &profiles)
{
    QList<Source> sources;
    QHash<QString, qsizetype> indexes;
    QList<std::pair<qint64, qint64>> pixels; // of the high and the low profile so far
    for (const Profile &profile : profiles) {
        const qint64 size = qint64(profile.width) * profile.height;
        const auto known = indexes.constFind(profile.sourceToken);
        if (known == indexes.cend()) {
            indexes.insert(profile.sourceToken, sources.size());
            sources.append({profile.sourceToken, profile.sourceName, profile.sourceConfiguration,
                            profile.token, profile.token, profile.hasAudio, profile.hasPtz, ptzOf(profile)});
            pixels.append({size, size});
            continue;
        }
        Source &source = sources[*known];
        if (profile.hasPtz && !source.hasPtz)
            source.ptz = ptzOf(profile);
        auto &[high, low] = pixels[*known];
        if (size > high) {
            high = size;
            source.highProfile = profile.token;
        }
        if (size < low) {
            low = size;
            source.lowProfile = profile.token;
        }
        source.hasAudio |= profile.hasAudio;
        source.hasPtz |= profile.hasPtz;
    }
    for (Source &source : sources) {
        if (!source.hasPtz)
            source.ptz.profile = source.highProfile;
    }
    return sources;
}

QHash<QString, QByteArray> readMasks(const XmlElement &answer)
{
    QHash<QString, std::vector<Mask::Polygon>> polygons;
    for (const XmlElement *mask : answer.all(u"Masks")) {
        if (mask->child(u"Enabled").value() == QLatin1StringView("false"))
            continue;
        Mask::Polygon polygon;
        for (const XmlElement *point : mask->child(u"Polygon").all(u"Point"))
            polygon.push_back(
                {fraction(point->attribute(u"x"), false), fraction(point->attribute(u"y"), true)});
        if (polygon.size() >= 3)
            polygons[mask->child(u"ConfigurationToken").value()].push_back(std::move(polygon));
    }
    QHash<QString, QByteArray> masks;
    for (auto it = polygons.cbegin(); it != polygons.cend(); ++it)
        masks.insert(it.key(), Mask::encode(it.value()).toUtf8());
    return masks;
}

QUrl readStreamUri(const XmlElement &answer, const QString &connectHost)
{
    QString text = answer.child(u"Uri").value();
    if (text.isEmpty())
        text = answer.at({u"MediaUri", u"Uri"}).value();
    QUrl url(text, QUrl::TolerantMode);
    const QString scheme = url.scheme().toLower();
    if (!url.isValid() || (scheme != QLatin1StringView("rtsp") && scheme != QLatin1StringView("rtsps")))
        return {};
    url.setUserInfo(QString());
    const QHostAddress address(url.host());
    if (url.host().isEmpty() || (!address.isNull() && isOnlyReachableFromInside(address)))
        url.setHost(connectHost);
    return url;
}

} // namespace orrin::mediaservice
