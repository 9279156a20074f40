// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/connector.h"
#include "core/session/onvif/onviftimings.h"

namespace orrin {

/*! Makes ONVIF sessions. Main thread. */
class ORRINSDK_CORE_EXPORT OnvifConnector : public Connector
{
public:
    explicit OnvifConnector(const OnvifTimings &timings = {});

    std::unique_ptr<Session> createSession(const CorvaneUrl &url, const SharedCredentials &credentials,
                                           bool asGroup, unsigned request) override;

private:
    const OnvifTimings m_timings;
};

} // namespace orrin
