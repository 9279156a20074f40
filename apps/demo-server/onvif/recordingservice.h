// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "onvif/onvifservice.h"

namespace orrin::demo {

/*! The ONVIF recording control service, as far as a client needs it to know what is recorded: the recordings
 * with their tracks. */
class RecordingService : public OnvifService
{
public:
    explicit RecordingService(const OnvifContext &context);

    void writeCapabilities(SoapWriter &writer) const override;

private:
    void writeRecordings(const OnvifCall &call, SoapWriter &writer) const;
};

} // namespace orrin::demo
