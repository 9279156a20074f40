// SPDX-License-Identifier: GPL-3.0-or-later
#include "onvif/replayservice.h"

#include "onvif/mediatokens.h"
#include "onvif/namespaces.h"
#include "onvif/recordingwriting.h"

namespace orrin::demo {

using namespace Qt::StringLiterals;

ReplayService::ReplayService(const OnvifContext &context)
    : OnvifService(context, ns::Replay, u"/onvif/replay_service"_s, 2, 60)
{
    add(u"GetServiceCapabilities"_s, Access::Anyone,
        [this](const OnvifCall &, SoapWriter &writer) -> std::optional<SoapFault> {
            writer.start(ns::Replay, "GetServiceCapabilitiesResponse"_L1);
            writeCapabilities(writer);
            writer.end();
            return std::nullopt;
        });
    add(u"GetReplayUri"_s, Access::Users,
        [this](const OnvifCall &call, SoapWriter &writer) { return writeReplayUri(call, writer); });
    add(u"GetReplayConfiguration"_s, Access::Users,
        [](const OnvifCall &, SoapWriter &writer) -> std::optional<SoapFault> {
            writer.start(ns::Replay, "GetReplayConfigurationResponse"_L1);
            writer.start(ns::Replay, "Configuration"_L1);
            writer.element(ns::Schema, "SessionTimeout"_L1, u"PT60S"_s);
            writer.end();
            writer.end();
            return std::nullopt;
        });
}

void ReplayService::writeCapabilities(SoapWriter &writer) const
{
    writer.empty(ns::Replay, "Capabilities"_L1,
                 {{"ReversePlayback"_L1, u"true"_s},
                  {"SessionTimeoutRange"_L1, u"60 60"_s},
                  {"RTP_RTSP_TCP"_L1, u"true"_s}});
}

std::optional<SoapFault> ReplayService::writeReplayUri(const OnvifCall &call, SoapWriter &writer) const
{
    if (!call.user->mayPlayBack())
        return recordingwriting::notPermitted();
    const XmlElement *setup = call.operation.child(u"StreamSetup");
    if (setup && setup->childText(u"Stream") == "RTP-Multicast"_L1)
        return SoapFault::invalidArgument(u"InvalidStreamSetup"_s, u"The transport is not supported."_s);
    const recordings::Ref ref = recordings::recordingFor(
        recorder(), *call.user, call.operation.childText(u"RecordingToken"));
    if (!ref)
        return recordingwriting::noRecording();
    writer.start(ns::Replay, "GetReplayUriResponse"_L1);
    writer.element(ns::Replay, "Uri"_L1, mediatokens::rtspUri(context(), call.request, ref.path()));
    writer.end();
    return std::nullopt;
}

} // namespace orrin::demo
