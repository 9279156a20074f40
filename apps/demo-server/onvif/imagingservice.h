// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "onvif/onvifservice.h"

namespace orrin::demo {

/*! The imaging service, as far as focus goes: the cameras that can be moved can be focused. GUI thread. */
class ImagingService : public OnvifService
{
public:
    explicit ImagingService(const OnvifContext &context);

    void writeCapabilities(SoapWriter &writer) const override;

private:
    using Fault = std::optional<SoapFault>;
    using Call = Fault (ImagingService::*)(const OnvifCall &, SoapWriter &) const;

    void addCall(const QString &name, Access access, Call call);
    Fault writeOptions(const OnvifCall &call, SoapWriter &writer) const;
    Fault writeStatus(const OnvifCall &call, SoapWriter &writer) const;
    Fault writeSettings(const OnvifCall &call, SoapWriter &writer) const;
    Fault move(const OnvifCall &call, SoapWriter &writer) const;
    Fault stop(const OnvifCall &call, SoapWriter &writer) const;

    /*! The camera of the call's source; null, with \a fault set, when there is none with a focus. */
    const Camera *cameraOf(const OnvifCall &call, Fault &fault) const;
};

} // namespace orrin::demo
