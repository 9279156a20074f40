// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/onvif/soapanswer.h"

#include "core/session/onvif/onvifnames.h"

#include <algorithm>

namespace orrin {

namespace {

QString localPart(const QString &qualified)
{
    return qualified.mid(qualified.indexOf(u':') + 1);
}

} // namespace

SoapAnswer SoapAnswer::read(const TransportResult &transport)
{
    SoapAnswer answer;
    answer.transport = transport;
    answer.transport.body.clear();
    if (transport.failure != TransportResult::Failure::None)
        return answer;
    answer.kind = Kind::NotSoap;
    const std::optional<XmlElement> envelope = XmlElement::parse(transport.body);
    if (!envelope || envelope->name != u"Envelope")
        return answer;
    const XmlElement &body = envelope->child(u"Body");
    if (body.isNull())
        return answer;
    if (const XmlElement &fault = body.child(u"Fault"); !fault.isNull()) {
        answer.readFault(fault);
    } else if (transport.status >= 200 && transport.status < 300) {
        answer.kind = Kind::Answer;
        if (!body.children.empty())
            answer.body = body.children.front();
    }
    return answer;
}

void SoapAnswer::readFault(const XmlElement &fault)
{
    kind = Kind::Fault;
    const XmlElement *subcode = &fault.at({u"Code", u"Subcode"});
    while (!subcode->isNull()) {
        const XmlElement &value = subcode->child(u"Value");
        subcodes.append({value.textNamespace, localPart(value.value())});
        subcode = &subcode->child(u"Subcode");
    }
    // SOAP 1.1 has no subcodes; devices put the reason into the code itself.
    if (const XmlElement &code = fault.child(u"faultcode"); !code.isNull())
        subcodes.append({code.textNamespace, localPart(code.value())});
    reason = fault.at({u"Reason", u"Text"}).value();
    if (reason.isEmpty())
        reason = fault.child(u"faultstring").value();
    const XmlElement &detail = fault.child(u"Detail");
    for (const auto &[uri, name] : std::as_const(subcodes)) {
        if (uri == onvif::SiteNamespace && !refusal)
            refusal = Refusal::fromName(name, detail.child(u"Seconds").value().toLongLong());
    }
}

bool SoapAnswer::hasSubcode(QStringView name) const
{
    return std::any_of(subcodes.begin(), subcodes.end(),
                       [name](const auto &code) { return code.second == name; });
}

bool SoapAnswer::isNotAuthorised() const
{
    if (refusal)
        return false;
    return transport.status == 401 ||
           (kind == Kind::Fault && (hasSubcode(u"NotAuthorized") || hasSubcode(u"FailedAuthentication") ||
                                    hasSubcode(u"InvalidSecurity") || hasSubcode(u"InvalidSecurityToken") ||
                                    hasSubcode(u"SenderNotAuthorized")));
}

} // namespace orrin
