// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "onvif/onvifservice.h"

namespace orrin::demo {

/*! The ONVIF replay service: addresses of recordings. */
class ReplayService : public OnvifService
{
public:
    explicit ReplayService(const OnvifContext &context);

    void writeCapabilities(SoapWriter &writer) const override;

private:
    std::optional<SoapFault> writeReplayUri(const OnvifCall &call, SoapWriter &writer) const;
};

} // namespace orrin::demo
