// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "http/httpreply.h"
#include "onvif/soapfault.h"
#include "onvif/soapwriter.h"

namespace orrin::demo {

/*! The answer to one SOAP request, to be sent at once or later. It can be moved, not copied. */
class SoapReply
{
public:
    static constexpr const char *ContentType = "application/soap+xml; charset=utf-8";

    explicit SoapReply(HttpReply reply) : m_reply(std::move(reply)) {}

    void send(SoapWriter &writer) { m_reply.send(200, ContentType, writer.finish()); }
    void sendFault(const SoapFault &fault) { m_reply.send(fault.status, ContentType, fault.document()); }

private:
    HttpReply m_reply;
};

} // namespace orrin::demo
