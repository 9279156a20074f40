// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "onvif/mediatokens.h"
#include "onvif/onvifservice.h"

namespace orrin::demo {

/*! The first ONVIF media service, for older clients. It cannot express H.265, so it leaves such cameras'
 * profiles out. */
class MediaService : public OnvifService
{
public:
    explicit MediaService(const OnvifContext &context);

    void writeCapabilities(SoapWriter &writer) const override;

private:
    std::optional<SoapFault> writeProfiles(const OnvifCall &call, SoapWriter &writer) const;
    std::optional<SoapFault> writeProfile(const OnvifCall &call, SoapWriter &writer) const;
    std::optional<SoapFault> writeVideoSources(const OnvifCall &call, SoapWriter &writer) const;
    std::optional<SoapFault> writeStreamUri(const OnvifCall &call, SoapWriter &writer) const;

    mediatokens::ProfileRef profile(const OnvifCall &call) const;
    void writeOne(SoapWriter &writer, QLatin1StringView name, const mediatokens::ProfileRef &ref) const;
};

} // namespace orrin::demo
