// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/onvif/refusal.h"
#include "core/session/onvif/transportresult.h"
#include "core/session/onvif/xmlelement.h"

#include <contract/core/export.h>

namespace orrin {

/*! A device's answer to a SOAP request, read from what came over HTTP. A value; safe on any thread. */
class ORRINSDK_CORE_EXPORT SoapAnswer
{
public:
    enum class Kind {
        Answer,  //!< body holds the answer's element
        Fault,   //!< a SOAP 1.2 or 1.1 fault
        NotSoap, //!< an HTTP answer that is none
        NoAnswer //!< see transport.failure
    };

    static SoapAnswer read(const TransportResult &transport);

    bool isAnswer() const { return kind == Kind::Answer; }
    /*! The device does not take the credentials: HTTP 401, or a fault that says so. */
    bool isNotAuthorised() const;
    /*! The fault names a subcode of that local name. */
    bool hasSubcode(QStringView name) const;

    Kind kind = Kind::NoAnswer;
    XmlElement body;
    QList<QPair<QString, QString>> subcodes; //!< namespace and local name, outermost first
    QString reason;
    std::optional<Refusal> refusal;
    TransportResult transport; //!< without the body

private:
    void readFault(const XmlElement &fault);
};

} // namespace orrin
