// SPDX-License-Identifier: GPL-3.0-or-later
#include "onvif/recordingservice.h"

#include "onvif/namespaces.h"
#include "onvif/recordingwriting.h"

namespace orrin::demo {

using namespace Qt::StringLiterals;
using recordings::Ref;

namespace {

void writeTrack(SoapWriter &writer, QLatin1StringView token, const QString &type, const QString &description)
{
    writer.start(ns::Schema, "Track"_L1);
    writer.element(ns::Schema, "TrackToken"_L1, QString(token));
    writer.start(ns::Schema, "Configuration"_L1);
    writer.element(ns::Schema, "TrackType"_L1, type);
    writer.element(ns::Schema, "Description"_L1, description);
    writer.end();
    writer.end();
}

} // namespace

RecordingService::RecordingService(const OnvifContext &context)
    : OnvifService(context, ns::Recording, u"/onvif/recording_service"_s, 2, 60)
{
    add(u"GetServiceCapabilities"_s, Access::Anyone,
        [this](const OnvifCall &, SoapWriter &writer) -> std::optional<SoapFault> {
            writer.start(ns::Recording, "GetServiceCapabilitiesResponse"_L1);
            writeCapabilities(writer);
            writer.end();
            return std::nullopt;
        });
    add(u"GetRecordings"_s, Access::Users,
        [this](const OnvifCall &call, SoapWriter &writer) -> std::optional<SoapFault> {
            if (!call.user->mayPlayBack())
                return recordingwriting::notPermitted();
            writeRecordings(call, writer);
            return std::nullopt;
        });
}

void RecordingService::writeCapabilities(SoapWriter &writer) const
{
    writer.empty(ns::Recording, "Capabilities"_L1,
                 {{"DynamicRecordings"_L1, u"false"_s},
                  {"DynamicTracks"_L1, u"false"_s},
                  {"Encoding"_L1, u"H264 H265 JPEG G711 AAC"_s},
                  {"MaxRecordings"_L1, u"1024"_s},
                  {"Options"_L1, u"false"_s},
                  {"MetadataRecording"_L1, u"false"_s}});
}

void RecordingService::writeRecordings(const OnvifCall &call, SoapWriter &writer) const
{
    writer.start(ns::Recording, "GetRecordingsResponse"_L1);
    const auto refs = recordings::recordingsFor(recorder(), *call.user);
    for (const Ref &ref : refs) {
        writer.start(ns::Recording, "RecordingItem"_L1);
        writer.element(ns::Schema, "RecordingToken"_L1, ref.token());
        writer.start(ns::Schema, "Configuration"_L1);
        recordingwriting::writeSource(writer, "Source"_L1, ref);
        writer.element(ns::Schema, "Content"_L1, recordingwriting::contentOf(ref));
        writer.element(ns::Schema, "MaximumRetentionTime"_L1, u"P30D"_s);
        writer.end();
        writer.start(ns::Schema, "Tracks"_L1);
        writeTrack(writer, recordings::VideoTrack, u"Video"_s, ref.profile->name);
        if (ref.hasAudio())
            writeTrack(writer, recordings::AudioTrack, u"Audio"_s, ref.profile->name);
        writer.end();
        writer.end();
    }
    writer.end();
}

} // namespace orrin::demo
