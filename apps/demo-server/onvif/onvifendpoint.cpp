// SPDX-License-Identifier: GPL-3.0-or-later
#include "onvif/onvifendpoint.h"

#include "onvif/deviceservice.h"
#include "onvif/eventservice.h"
#include "onvif/media2service.h"
#include "onvif/imagingservice.h"
#include "onvif/mediaservice.h"
#include "onvif/ptzservice.h"
#include "onvif/recordingservice.h"
#include "onvif/replayservice.h"
#include "onvif/searchservice.h"

#include <algorithm>

namespace orrin::demo {

using namespace Qt::StringLiterals;

OnvifEndpoint::OnvifEndpoint(const OnvifContext &context, Authenticator &authenticator)
    : m_authenticator(authenticator)
{
    m_services.push_back(std::make_unique<DeviceService>(context, [this] {
        QList<const OnvifService *> services;
        for (const auto &service : m_services)
            services.append(service.get());
        return services;
    }));
    m_services.push_back(std::make_unique<MediaService>(context));
    m_services.push_back(std::make_unique<Media2Service>(context));
    m_services.push_back(std::make_unique<EventService>(context));
    m_services.push_back(std::make_unique<PtzService>(context));
    m_services.push_back(std::make_unique<ImagingService>(context));
    m_services.push_back(std::make_unique<RecordingService>(context));
    m_services.push_back(std::make_unique<SearchService>(context));
    m_services.push_back(std::make_unique<ReplayService>(context));
}

void OnvifEndpoint::reset()
{
    for (const auto &service : m_services)
        service->reset();
}

std::pair<int, int> OnvifEndpoint::subscriptionCounts() const
{
    std::pair<int, int> sum{0, 0};
    for (const auto &service : m_services) {
        const auto [standing, made] = service->subscriptionCounts();
        sum.first += standing;
        sum.second += made;
    }
    return sum;
}

void OnvifEndpoint::handle(const HttpRequest &request, HttpReply reply)
{
    if (request.method != "POST") {
        reply.send(405, "text/plain", "SOAP requests are posted.\n", {{"Allow", "POST"}});
        return;
    }
    const SoapRequest soap = SoapRequest::parse(request.body);
    if (soap.error != SoapRequest::Error::None) {
        // Some clients ask for the challenge with an empty body first.
        if (request.body.isEmpty() && request.authorization.isEmpty())
            return sendFault(SoapFault::notAuthorized(), std::move(reply));
        return sendFault(soap.error == SoapRequest::Error::WrongVersion ? SoapFault::wrongVersion()
                                                                        : SoapFault::notWellFormed(),
                         std::move(reply));
    }
    const auto service = std::ranges::find_if(
        m_services, [&soap](const auto &each) { return each->serves(soap.operation.ns); });
    const OnvifService::Operation *operation =
        service == m_services.end() ? nullptr : (*service)->operation(soap.operation.name);
    std::optional<User> user;
    if (!operation || operation->access != OnvifService::Access::Anyone) {
        const Authenticator::Result result = soap.usernameToken
                                                 ? m_authenticator.checkUsernameToken(*soap.usernameToken)
                                                 : m_authenticator.checkDigest(request);
        if (result.refusal)
            return sendFault(SoapFault::refused(result.refusal), std::move(reply));
        if (!result.user)
            return sendFault(SoapFault::notAuthorized(), std::move(reply), result.stale);
        user = result.user;
    }
    if (!operation)
        return sendFault(SoapFault::actionNotSupported(soap.operation.name.left(100)), std::move(reply));
    if (operation->access == OnvifService::Access::Administrators && user->level != UserLevel::Administrator)
        return sendFault(SoapFault::notPermitted(), std::move(reply));
    if (operation->access == OnvifService::Access::Operators && user->level == UserLevel::User)
        return sendFault(SoapFault::notPermitted(), std::move(reply));
    const OnvifCall call{soap.operation, user, request};
    if (operation->later)
        return operation->later(call, SoapReply(std::move(reply)));
    SoapWriter writer;
    if (const std::optional<SoapFault> fault = operation->handler(call, writer))
        return sendFault(*fault, std::move(reply));
    reply.send(200, SoapReply::ContentType, writer.finish());
}

void OnvifEndpoint::sendFault(const SoapFault &fault, HttpReply reply, bool stale)
{
    QList<HttpReply::Header> headers;
    if (fault.status == 401) {
        const auto challenges = m_authenticator.challenges(stale);
        for (const QByteArray &challenge : challenges)
            headers.append({"WWW-Authenticate", challenge});
    }
    reply.send(fault.status, SoapReply::ContentType, fault.document(), headers);
}

} // namespace orrin::demo
