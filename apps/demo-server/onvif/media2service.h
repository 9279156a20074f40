// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "onvif/mediatokens.h"
#include "onvif/onvifservice.h"

namespace orrin::demo {

/*! The ONVIF media 2 service: profiles, configurations, privacy masks, addresses of live streams. */
class Media2Service : public OnvifService
{
public:
    explicit Media2Service(const OnvifContext &context);

    void writeCapabilities(SoapWriter &writer) const override;

private:
    std::optional<SoapFault> writeProfiles(const OnvifCall &call, SoapWriter &writer) const;
    std::optional<SoapFault> writeSourceConfigurations(const OnvifCall &call, SoapWriter &writer) const;
    std::optional<SoapFault> writeEncoderConfigurations(const OnvifCall &call, SoapWriter &writer) const;
    std::optional<SoapFault> writeStreamUri(const OnvifCall &call, SoapWriter &writer) const;
    std::optional<SoapFault> writeMasks(const OnvifCall &call, SoapWriter &writer) const;
    std::optional<SoapFault> writeMaskOptions(const OnvifCall &call, SoapWriter &writer) const;

    void writeSourceConfiguration(SoapWriter &writer, QLatin1StringView name, const Camera &camera) const;
    void writeEncoderConfiguration(SoapWriter &writer, QLatin1StringView name,
                                   const mediatokens::ProfileRef &ref) const;
};

} // namespace orrin::demo
