// SPDX-License-Identifier: GPL-3.0-or-later
#include "onvif/mediaservice.h"

#include "onvif/namespaces.h"
#include "onvif/ptzconfiguration.h"

namespace orrin::demo {

using namespace Qt::StringLiterals;
using mediatokens::ProfileRef;

namespace {

SoapFault noProfile()
{
    return SoapFault::invalidArgument(u"NoProfile"_s, u"There is no such profile."_s);
}

void writeResolution(SoapWriter &writer, QSize size)
{
    writer.start(ns::Schema, "Resolution"_L1);
    writer.element(ns::Schema, "Width"_L1, qint64(size.width()));
    writer.element(ns::Schema, "Height"_L1, qint64(size.height()));
    writer.end();
}

void writeMulticast(SoapWriter &writer)
{
    writer.start(ns::Schema, "Multicast"_L1);
    writer.start(ns::Schema, "Address"_L1);
    writer.element(ns::Schema, "Type"_L1, u"IPv4"_s);
    writer.element(ns::Schema, "IPv4Address"_L1, u"0.0.0.0"_s);
    writer.end();
    writer.element(ns::Schema, "Port"_L1, qint64(0));
    writer.element(ns::Schema, "TTL"_L1, qint64(0));
    writer.element(ns::Schema, "AutoStart"_L1, false);
    writer.end();
}

} // namespace

MediaService::MediaService(const OnvifContext &context)
    : OnvifService(context, ns::Media, u"/onvif/media_service"_s, 2, 60)
{
    const auto addCall = [this](const QString &name, std::optional<SoapFault> (MediaService::*write)(
                                                         const OnvifCall &, SoapWriter &) const) {
        add(name, Access::Users, [this, write](const OnvifCall &call, SoapWriter &writer) {
            return (this->*write)(call, writer);
        });
    };
    addCall(u"GetProfiles"_s, &MediaService::writeProfiles);
    addCall(u"GetProfile"_s, &MediaService::writeProfile);
    addCall(u"GetVideoSources"_s, &MediaService::writeVideoSources);
    addCall(u"GetStreamUri"_s, &MediaService::writeStreamUri);
    add(u"GetServiceCapabilities"_s, Access::Anyone,
        [this](const OnvifCall &, SoapWriter &writer) -> std::optional<SoapFault> {
            writer.start(ns::Media, "GetServiceCapabilitiesResponse"_L1);
            writeCapabilities(writer);
            writer.end();
            return std::nullopt;
        });
}

void MediaService::writeCapabilities(SoapWriter &writer) const
{
    writer.start(ns::Media, "Capabilities"_L1);
    writer.empty(ns::Media, "ProfileCapabilities"_L1, {{"MaximumNumberOfProfiles"_L1, u"64"_s}});
    writer.empty(
        ns::Media, "StreamingCapabilities"_L1,
        {{"RTPMulticast"_L1, u"false"_s}, {"RTP_TCP"_L1, u"false"_s}, {"RTP_RTSP_TCP"_L1, u"true"_s}});
    writer.end();
}

ProfileRef MediaService::profile(const OnvifCall &call) const
{
    const ProfileRef ref =
        mediatokens::profileFor(recorder(), *call.user, call.operation.childText(u"ProfileToken"));
    return ref && ref.camera->codec != VideoCodec::H265 ? ref : ProfileRef();
}

std::optional<SoapFault> MediaService::writeProfiles(const OnvifCall &call, SoapWriter &writer) const
{
    writer.start(ns::Media, "GetProfilesResponse"_L1);
    const auto refs = mediatokens::profilesFor(recorder(), *call.user);
    for (const ProfileRef &ref : refs) {
        if (ref.camera->codec != VideoCodec::H265)
            writeOne(writer, "Profiles"_L1, ref);
    }
    writer.end();
    return std::nullopt;
}

std::optional<SoapFault> MediaService::writeProfile(const OnvifCall &call, SoapWriter &writer) const
{
    const ProfileRef ref = profile(call);
    if (!ref)
        return noProfile();
    writer.start(ns::Media, "GetProfileResponse"_L1);
    writeOne(writer, "Profile"_L1, ref);
    writer.end();
    return std::nullopt;
}

void MediaService::writeOne(SoapWriter &writer, QLatin1StringView name, const ProfileRef &ref) const
{
    const Camera &camera = *ref.camera;
    const Profile &profile = *ref.profile;
    const QSize sourceSize = camera.profiles.first().size;
    const QString title = u"%1 %2"_s.arg(camera.name, profile.name);
    writer.start(ns::Media, name, {{"token"_L1, ref.token()}, {"fixed"_L1, u"true"_s}});
    writer.element(ns::Schema, "Name"_L1, title);
    writer.start(ns::Schema, "VideoSourceConfiguration"_L1,
                 {{"token"_L1, mediatokens::sourceConfiguration(camera)}});
    writer.element(ns::Schema, "Name"_L1, camera.name);
    writer.element(ns::Schema, "UseCount"_L1, qint64(camera.profiles.size()));
    writer.element(ns::Schema, "SourceToken"_L1, mediatokens::source(camera));
    writer.empty(ns::Schema, "Bounds"_L1,
                 {{"x"_L1, u"0"_s},
                  {"y"_L1, u"0"_s},
                  {"width"_L1, QString::number(sourceSize.width())},
                  {"height"_L1, QString::number(sourceSize.height())}});
    writer.end();
    writer.start(ns::Schema, "VideoEncoderConfiguration"_L1, {{"token"_L1, ref.encoderToken()}});
    writer.element(ns::Schema, "Name"_L1, title);
    writer.element(ns::Schema, "UseCount"_L1, qint64(1));
    writer.element(ns::Schema, "Encoding"_L1, camera.codec == VideoCodec::Mjpeg ? u"JPEG"_s : u"H264"_s);
    writeResolution(writer, profile.size);
    writer.element(ns::Schema, "Quality"_L1, qint64(5));
    writer.start(ns::Schema, "RateControl"_L1);
    writer.element(ns::Schema, "FrameRateLimit"_L1, qint64(profile.rate));
    writer.element(ns::Schema, "EncodingInterval"_L1, qint64(1));
    writer.element(ns::Schema, "BitrateLimit"_L1, qint64(profile.bitrateKbit));
    writer.end();
    if (camera.codec == VideoCodec::H264) {
        writer.start(ns::Schema, "H264"_L1);
        writer.element(ns::Schema, "GovLength"_L1, qint64(profile.rate));
        writer.element(ns::Schema, "H264Profile"_L1, u"Baseline"_s);
        writer.end();
    }
    writeMulticast(writer);
    writer.element(ns::Schema, "SessionTimeout"_L1, u"PT60S"_s);
    writer.end();
    if (camera.motor)
        ptzconfiguration::write(writer, ns::Schema, "PTZConfiguration"_L1, camera);
    writer.end();
}

std::optional<SoapFault> MediaService::writeVideoSources(const OnvifCall &, SoapWriter &writer) const
{
    writer.start(ns::Media, "GetVideoSourcesResponse"_L1);
    for (const Camera &camera : recorder().cameras) {
        const Profile &profile = camera.profiles.first();
        writer.start(ns::Media, "VideoSources"_L1, {{"token"_L1, mediatokens::source(camera)}});
        writer.element(ns::Schema, "Framerate"_L1, qint64(profile.rate));
        writeResolution(writer, profile.size);
        writer.end();
    }
    writer.end();
    return std::nullopt;
}

std::optional<SoapFault> MediaService::writeStreamUri(const OnvifCall &call, SoapWriter &writer) const
{
    const XmlElement *setup = call.operation.child(u"StreamSetup");
    if (setup && setup->childText(u"Stream") == "RTP-Multicast"_L1)
        return SoapFault::invalidArgument(u"InvalidStreamSetup"_s, u"The transport is not supported."_s);
    const ProfileRef ref = profile(call);
    if (!ref)
        return noProfile();
    writer.start(ns::Media, "GetStreamUriResponse"_L1);
    writer.start(ns::Media, "MediaUri"_L1);
    writer.element(ns::Schema, "Uri"_L1, mediatokens::streamUri(context(), call.request, ref));
    writer.element(ns::Schema, "InvalidAfterConnect"_L1, false);
    writer.element(ns::Schema, "InvalidAfterReboot"_L1, false);
    writer.element(ns::Schema, "Timeout"_L1, u"PT60S"_s);
    writer.end();
    writer.end();
    return std::nullopt;
}

} // namespace orrin::demo
