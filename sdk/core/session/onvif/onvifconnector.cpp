// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/onvif/onvifconnector.h"

#include "core/session/onvif/onvifsession.h"

namespace orrin {

OnvifConnector::OnvifConnector(const OnvifTimings &timings) : m_timings(timings) {}

std::unique_ptr<Session> OnvifConnector::createSession(const CorvaneUrl &url,
                                                       const SharedCredentials &credentials, bool asGroup,
                                                       unsigned request)
{
    return std::make_unique<OnvifSession>(url, credentials, asGroup, request, m_timings);
}

} // namespace orrin
