// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/onvif/deviceservice.h"
#include "core/session/onvif/eventservice.h"
#include "core/session/onvif/mediaservice.h"
#include "core/session/onvif/recordingservice.h"
#include "core/session/onvif/soapanswer.h"

#include <cstdint>
#include <cstdlib>

using namespace orrin;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    TransportResult transport;
    transport.status = size % 2 == 0 ? 200 : 400;
    transport.body = QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const SoapAnswer answer = SoapAnswer::read(transport);
    if (answer.refusal && answer.refusal->seconds < 0)
        std::abort();
    if (const auto clock = deviceservice::readClock(answer.body);
        clock && (!clock->utc.isValid() || !clock->zone.isValid()))
        std::abort();
    deviceservice::readServices(answer.body);
    deviceservice::readCapabilities(answer.body);
    deviceservice::readUserLevel(answer.body, QStringLiteral("admin"));
    deviceservice::uidOf(deviceservice::readInformation(answer.body), QString());
    mediaservice::sourcesOf(mediaservice::readProfiles(answer.body));
    mediaservice::readMasks(answer.body);
    if (!mediaservice::readStreamUri(answer.body, QStringLiteral("host")).userInfo().isEmpty())
        std::abort();
    if (eventservice::readCauses(answer.body).size() > eventservice::CauseLimit)
        std::abort();
    for (const EventDescription &event : eventservice::readMessages(answer.body, {})) {
        if (event.cause.isEmpty() || event.cause.size() > eventservice::TextLimit ||
            event.text.size() > eventservice::TextLimit || event.source.size() > eventservice::TextLimit)
            std::abort();
    }
    for (const recordingservice::Recording &recording : recordingservice::readRecordings(answer.body).items) {
        if (recording.token.isEmpty() || recording.tracks.size() > recordingservice::TrackLimit)
            std::abort();
    }
    if (recordingservice::readDataChanges(answer.body).items.size() > recordingservice::EventLimit)
        std::abort();
    recordingservice::readRecording(answer.body);
    recordingservice::readSearchToken(answer.body);
    recordingservice::readPixels(answer.body);
    if (const QString path = eventservice::readPullPoint(answer.body).path;
        !path.isEmpty() && !path.startsWith(u'/'))
        std::abort();
    return 0;
}
