// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "http/authenticator.h"
#include "http/httpreply.h"
#include "onvif/onvifservice.h"

#include <memory>
#include <vector>

namespace orrin::demo {

/*! The SOAP side of one recorder: parses requests, checks logins, calls the services' operations, answers
 * with their response or a fault. GUI thread. */
class OnvifEndpoint
{
public:
    /*! \a authenticator is shared with the site extension and outlives the endpoint. */
    OnvifEndpoint(const OnvifContext &context, Authenticator &authenticator);

    void handle(const HttpRequest &request, HttpReply reply);

    /*! Forgets what clients left behind. */
    void reset();
    /*! Subscriptions that stand, and those made since the start. */
    std::pair<int, int> subscriptionCounts() const;

private:
    void sendFault(const SoapFault &fault, HttpReply reply, bool stale = false);

    Authenticator &m_authenticator;
    std::vector<std::unique_ptr<OnvifService>> m_services;
};

} // namespace orrin::demo
