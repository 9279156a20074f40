// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "onvif/onvifservice.h"

namespace orrin::demo {

/*! The ONVIF device service. */
class DeviceService : public OnvifService
{
public:
    using ServiceList = std::function<QList<const OnvifService *>()>;

    /*! \a services gives all services of the recorder, for GetServices. */
    DeviceService(const OnvifContext &context, ServiceList services);

    void writeCapabilities(SoapWriter &writer) const override;

private:
    void writeSystemDateAndTime(SoapWriter &writer) const;
    void writeDeviceInformation(SoapWriter &writer) const;
    void writeServices(const OnvifCall &call, SoapWriter &writer) const;
    std::optional<SoapFault> writeLegacyCapabilities(const OnvifCall &call, SoapWriter &writer) const;
    void writeScopes(SoapWriter &writer) const;
    void writeHostname(SoapWriter &writer) const;
    void writeNetworkInterfaces(SoapWriter &writer) const;
    void writeNetworkProtocols(SoapWriter &writer) const;
    void writeUsers(SoapWriter &writer) const;

    ServiceList m_services;
};

} // namespace orrin::demo
