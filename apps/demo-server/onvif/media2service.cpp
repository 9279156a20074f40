// SPDX-License-Identifier: GPL-3.0-or-later
#include "onvif/media2service.h"

#include "onvif/namespaces.h"
#include "onvif/ptzconfiguration.h"

#include <array>

namespace orrin::demo {

using namespace Qt::StringLiterals;
using mediatokens::ProfileRef;

namespace {

QString encodingName(VideoCodec codec)
{
    switch (codec) {
    case VideoCodec::H264:
        return u"H264"_s;
    case VideoCodec::H265:
        return u"H265"_s;
    case VideoCodec::Mjpeg:
        break;
    }
    return u"JPEG"_s;
}

QString number(double value)
{
    return QString::number(value, 'f', 4);
}

SoapFault noProfile()
{
    return SoapFault::invalidArgument(u"NoProfile"_s, u"There is no such profile."_s);
}

SoapFault noConfiguration()
{
    return SoapFault::invalidArgument(u"NoConfig"_s, u"There is no such configuration."_s);
}

} // namespace

Media2Service::Media2Service(const OnvifContext &context)
    : OnvifService(context, ns::Media2, u"/onvif/media2_service"_s, 2, 60)
{
    const auto addCall = [this](const QString &name, std::optional<SoapFault> (Media2Service::*write)(
                                                         const OnvifCall &, SoapWriter &) const) {
        add(name, Access::Users, [this, write](const OnvifCall &call, SoapWriter &writer) {
            return (this->*write)(call, writer);
        });
    };
    addCall(u"GetProfiles"_s, &Media2Service::writeProfiles);
    addCall(u"GetVideoSourceConfigurations"_s, &Media2Service::writeSourceConfigurations);
    addCall(u"GetVideoEncoderConfigurations"_s, &Media2Service::writeEncoderConfigurations);
    addCall(u"GetStreamUri"_s, &Media2Service::writeStreamUri);
    addCall(u"GetMasks"_s, &Media2Service::writeMasks);
    addCall(u"GetMaskOptions"_s, &Media2Service::writeMaskOptions);
    add(u"GetServiceCapabilities"_s, Access::Anyone,
        [this](const OnvifCall &, SoapWriter &writer) -> std::optional<SoapFault> {
            writer.start(ns::Media2, "GetServiceCapabilitiesResponse"_L1);
            writeCapabilities(writer);
            writer.end();
            return std::nullopt;
        });
}

void Media2Service::writeCapabilities(SoapWriter &writer) const
{
    writer.start(ns::Media2, "Capabilities"_L1, {{"Mask"_L1, u"true"_s}});
    writer.empty(ns::Media2, "ProfileCapabilities"_L1,
                 {{"MaximumNumberOfProfiles"_L1, u"64"_s},
                  {"ConfigurationsSupported"_L1, u"VideoSource VideoEncoder PTZ"_s}});
    writer.empty(
        ns::Media2, "StreamingCapabilities"_L1,
        {{"RTSPStreaming"_L1, u"true"_s}, {"RTPMulticast"_L1, u"false"_s}, {"RTP_RTSP_TCP"_L1, u"true"_s}});
    writer.end();
}

std::optional<SoapFault> Media2Service::writeProfiles(const OnvifCall &call, SoapWriter &writer) const
{
    const QString token = call.operation.childText(u"Token");
    QStringList types;
    for (const XmlElement &child : call.operation.children) {
        if (child.name == "Type"_L1)
            types.append(child.text.trimmed());
    }
    const bool all = types.contains(u"All"_s);
    const bool withSource = all || types.contains(u"VideoSource"_s);
    const bool withEncoder = all || types.contains(u"VideoEncoder"_s);
    const bool withPtz = all || types.contains(u"PTZ"_s);
    if (!token.isEmpty() && !mediatokens::profileFor(recorder(), *call.user, token))
        return noProfile();

    writer.start(ns::Media2, "GetProfilesResponse"_L1);
    const auto refs = mediatokens::profilesFor(recorder(), *call.user);
    for (const ProfileRef &ref : refs) {
        if (!token.isEmpty() && ref.token() != token)
            continue;
        writer.start(ns::Media2, "Profiles"_L1, {{"token"_L1, ref.token()}, {"fixed"_L1, u"true"_s}});
        writer.element(ns::Media2, "Name"_L1, u"%1 %2"_s.arg(ref.camera->name, ref.profile->name));
        const bool tellsPtz = withPtz && ref.camera->motor;
        if (withSource || withEncoder || tellsPtz) {
            writer.start(ns::Media2, "Configurations"_L1);
            if (withSource)
                writeSourceConfiguration(writer, "VideoSource"_L1, *ref.camera);
            if (withEncoder)
                writeEncoderConfiguration(writer, "VideoEncoder"_L1, ref);
            if (tellsPtz)
                ptzconfiguration::write(writer, ns::Media2, "PTZ"_L1, *ref.camera);
            writer.end();
        }
        writer.end();
    }
    writer.end();
    return std::nullopt;
}

void Media2Service::writeSourceConfiguration(SoapWriter &writer, QLatin1StringView name,
                                             const Camera &camera) const
{
    const QSize size = camera.profiles.first().size;
    writer.start(ns::Media2, name, {{"token"_L1, mediatokens::sourceConfiguration(camera)}});
    writer.element(ns::Schema, "Name"_L1, camera.name);
    writer.element(ns::Schema, "UseCount"_L1, qint64(camera.profiles.size()));
    writer.element(ns::Schema, "SourceToken"_L1, mediatokens::source(camera));
    writer.empty(ns::Schema, "Bounds"_L1,
                 {{"x"_L1, u"0"_s},
                  {"y"_L1, u"0"_s},
                  {"width"_L1, QString::number(size.width())},
                  {"height"_L1, QString::number(size.height())}});
    writer.end();
}

void Media2Service::writeEncoderConfiguration(SoapWriter &writer, QLatin1StringView name,
                                              const ProfileRef &ref) const
{
    const Profile &profile = *ref.profile;
    if (ref.camera->codec == VideoCodec::Mjpeg)
        writer.start(ns::Media2, name, {{"token"_L1, ref.encoderToken()}});
    else
        writer.start(ns::Media2, name,
                     {{"token"_L1, ref.encoderToken()},
                      {"GovLength"_L1, QString::number(profile.rate)},
                      {"Profile"_L1, ref.camera->codec == VideoCodec::H264 ? u"Baseline"_s : u"Main"_s}});
    writer.element(ns::Schema, "Name"_L1, u"%1 %2"_s.arg(ref.camera->name, profile.name));
    writer.element(ns::Schema, "UseCount"_L1, qint64(1));
    writer.element(ns::Schema, "Encoding"_L1, encodingName(ref.camera->codec));
    writer.start(ns::Schema, "Resolution"_L1);
    writer.element(ns::Schema, "Width"_L1, qint64(profile.size.width()));
    writer.element(ns::Schema, "Height"_L1, qint64(profile.size.height()));
    writer.end();
    writer.start(ns::Schema, "RateControl"_L1, {{"ConstantBitRate"_L1, u"false"_s}});
    writer.element(ns::Schema, "FrameRateLimit"_L1, qint64(profile.rate));
    writer.element(ns::Schema, "BitrateLimit"_L1, qint64(profile.bitrateKbit));
    writer.end();
    writer.element(ns::Schema, "Quality"_L1, qint64(5));
    writer.end();
}

std::optional<SoapFault> Media2Service::writeSourceConfigurations(const OnvifCall &call,
                                                                  SoapWriter &writer) const
{
    const QString wanted = call.operation.childText(u"ConfigurationToken");
    const QString profileToken = call.operation.childText(u"ProfileToken");
    const ProfileRef profile = mediatokens::profileFor(recorder(), *call.user, profileToken);
    if (!profileToken.isEmpty() && !profile)
        return noProfile();
    bool found = wanted.isEmpty();
    writer.start(ns::Media2, "GetVideoSourceConfigurationsResponse"_L1);
    for (const Camera &camera : recorder().cameras) {
        if ((!wanted.isEmpty() && mediatokens::sourceConfiguration(camera) != wanted) ||
            (profile && profile.camera != &camera))
            continue;
        found = true;
        writeSourceConfiguration(writer, "Configurations"_L1, camera);
    }
    writer.end();
    return found ? std::nullopt : std::optional(noConfiguration());
}

std::optional<SoapFault> Media2Service::writeEncoderConfigurations(const OnvifCall &call,
                                                                   SoapWriter &writer) const
{
    const QString wanted = call.operation.childText(u"ConfigurationToken");
    const QString profileToken = call.operation.childText(u"ProfileToken");
    if (!profileToken.isEmpty() && !mediatokens::profileFor(recorder(), *call.user, profileToken))
        return noProfile();
    bool found = wanted.isEmpty();
    writer.start(ns::Media2, "GetVideoEncoderConfigurationsResponse"_L1);
    const auto refs = mediatokens::profilesFor(recorder(), *call.user);
    for (const ProfileRef &ref : refs) {
        if ((!wanted.isEmpty() && ref.encoderToken() != wanted) ||
            (!profileToken.isEmpty() && ref.token() != profileToken))
            continue;
        found = true;
        writeEncoderConfiguration(writer, "Configurations"_L1, ref);
    }
    writer.end();
    return found ? std::nullopt : std::optional(noConfiguration());
}

std::optional<SoapFault> Media2Service::writeStreamUri(const OnvifCall &call, SoapWriter &writer) const
{
    static constexpr std::array<QLatin1StringView, 3> Protocols{"RtspUnicast"_L1, "RTSP"_L1,
                                                                "RtspsUnicast"_L1};
    const QString protocol = call.operation.childText(u"Protocol");
    if (std::ranges::find(Protocols, protocol) == Protocols.end())
        return SoapFault::invalidArgument(u"InvalidStreamSetup"_s, u"The transport is not supported."_s);
    const ProfileRef ref =
        mediatokens::profileFor(recorder(), *call.user, call.operation.childText(u"ProfileToken"));
    if (!ref)
        return noProfile();
    writer.start(ns::Media2, "GetStreamUriResponse"_L1);
    writer.element(ns::Media2, "Uri"_L1, mediatokens::streamUri(context(), call.request, ref));
    writer.end();
    return std::nullopt;
}

std::optional<SoapFault> Media2Service::writeMasks(const OnvifCall &call, SoapWriter &writer) const
{
    const QString token = call.operation.childText(u"Token");
    const QString configuration = call.operation.childText(u"ConfigurationToken");
    bool found = token.isEmpty() && configuration.isEmpty();
    writer.start(ns::Media2, "GetMasksResponse"_L1);
    for (const Camera &camera : recorder().cameras) {
        const QString maskToken = u"M_%1"_s.arg(camera.id);
        const QString source = mediatokens::sourceConfiguration(camera);
        if ((!configuration.isEmpty() && configuration != source) || (!token.isEmpty() && token != maskToken))
            continue;
        found = found || !configuration.isEmpty() || camera.mask;
        if (!camera.mask)
            continue;
        writer.start(ns::Media2, "Masks"_L1, {{"token"_L1, maskToken}});
        writer.element(ns::Media2, "ConfigurationToken"_L1, source);
        writer.start(ns::Media2, "Polygon"_L1);
        // Masks are given in a square from -1 to 1 with y upwards.
        for (const QPointF &corner : {camera.mask->topLeft(), camera.mask->topRight(),
                                      camera.mask->bottomRight(), camera.mask->bottomLeft()})
            writer.empty(ns::Schema, "Point"_L1,
                         {{"x"_L1, number(corner.x() * 2 - 1)}, {"y"_L1, number(1 - corner.y() * 2)}});
        writer.end();
        writer.element(ns::Media2, "Type"_L1, u"Color"_s);
        writer.empty(ns::Media2, "Color"_L1,
                     {{"X"_L1, u"16"_s},
                      {"Y"_L1, u"128"_s},
                      {"Z"_L1, u"128"_s},
                      {"Colorspace"_L1, u"http://www.onvif.org/ver10/colorspace/YCbCr"_s}});
        writer.element(ns::Media2, "Enabled"_L1, true);
        writer.end();
    }
    writer.end();
    return found ? std::nullopt : std::optional(noConfiguration());
}

std::optional<SoapFault> Media2Service::writeMaskOptions(const OnvifCall &call, SoapWriter &writer) const
{
    const QString configuration = call.operation.childText(u"ConfigurationToken");
    const auto known = std::ranges::any_of(recorder().cameras, [&configuration](const Camera &camera) {
        return mediatokens::sourceConfiguration(camera) == configuration;
    });
    if (!known)
        return noConfiguration();
    writer.start(ns::Media2, "GetMaskOptionsResponse"_L1);
    writer.start(ns::Media2, "Options"_L1,
                 {{"RectangleOnly"_L1, u"true"_s}, {"SingleColorOnly"_L1, u"true"_s}});
    writer.element(ns::Media2, "MaxMasks"_L1, qint64(1));
    writer.element(ns::Media2, "MaxPoints"_L1, qint64(4));
    writer.element(ns::Media2, "Types"_L1, u"Color"_s);
    writer.start(ns::Media2, "Color"_L1);
    writer.empty(ns::Schema, "ColorList"_L1,
                 {{"X"_L1, u"16"_s},
                  {"Y"_L1, u"128"_s},
                  {"Z"_L1, u"128"_s},
                  {"Colorspace"_L1, u"http://www.onvif.org/ver10/colorspace/YCbCr"_s}});
    writer.end();
    writer.end();
    writer.end();
    return std::nullopt;
}

} // namespace orrin::demo
