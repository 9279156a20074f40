// SPDX-License-Identifier: GPL-3.0-or-later
#include "onvif/soapfault.h"

#include "onvif/namespaces.h"
#include "onvif/soapwriter.h"

namespace orrin::demo {

using namespace Qt::StringLiterals;

SoapFault SoapFault::notWellFormed()
{
    return {u"env:Sender"_s, {u"ter:WellFormed"_s}, u"The request is not a well-formed SOAP envelope."_s};
}

SoapFault SoapFault::wrongVersion()
{
    return {u"env:VersionMismatch"_s, {}, u"Only SOAP 1.2 is supported."_s};
}

SoapFault SoapFault::actionNotSupported(const QString &action)
{
    return {u"env:Receiver"_s,
            {u"ter:ActionNotSupported"_s},
            u"The action %1 is not supported."_s.arg(action),
            500};
}

SoapFault SoapFault::notAuthorized()
{
    return {u"env:Sender"_s, {u"ter:NotAuthorized"_s}, u"The action requires valid credentials."_s, 401};
}

SoapFault SoapFault::notPermitted()
{
    return {
        u"env:Sender"_s, {u"ter:NotAuthorized"_s}, u"The user's level does not permit the action."_s, 403};
}

SoapFault SoapFault::invalidArgument(const QString &subcode, const QString &reason)
{
    return {u"env:Sender"_s, {u"ter:InvalidArgVal"_s, u"ter:"_s + subcode}, reason};
}

SoapFault SoapFault::refused(const Refusal &refusal)
{
    SoapFault fault{
        u"env:Sender"_s, {u"ter:NotAuthorized"_s, u"site:"_s + refusal.name()}, u"The login is refused."_s};
    if (refusal.reason == Refusal::Reason::AccountLocked)
        fault.seconds = refusal.seconds;
    return fault;
}

QByteArray SoapFault::document() const
{
    SoapWriter writer;
    writer.start(ns::Envelope, "Fault"_L1);
    writer.start(ns::Envelope, "Code"_L1);
    writer.element(ns::Envelope, "Value"_L1, code);
    for (const QString &subcode : subcodes) {
        writer.start(ns::Envelope, "Subcode"_L1);
        writer.element(ns::Envelope, "Value"_L1, subcode);
    }
    for (qsizetype i = 0; i < subcodes.size(); ++i)
        writer.end();
    writer.end();
    writer.start(ns::Envelope, "Reason"_L1);
    writer.start(ns::Envelope, "Text"_L1, {{"xml:lang"_L1, u"en"_s}});
    writer.text(reason);
    writer.end();
    writer.end();
    if (seconds >= 0) {
        writer.start(ns::Envelope, "Detail"_L1);
        writer.element(ns::Site, "Seconds"_L1, qint64(seconds));
        writer.end();
    }
    writer.end();
    return writer.finish();
}

} // namespace orrin::demo
