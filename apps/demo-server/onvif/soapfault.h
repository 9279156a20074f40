// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "site/accounts.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace orrin::demo {

/*! A SOAP 1.2 fault with its HTTP status. A plain value. */
struct SoapFault
{
    QString code;         //!< qualified: "env:Sender"
    QStringList subcodes; //!< qualified, from the outer to the inner: "ter:InvalidArgVal", "ter:NoProfile"
    QString reason;
    int status = 400;
    int seconds = -1; //!< the time in the detail of a locked account, -1 for none

    static SoapFault notWellFormed();
    static SoapFault wrongVersion();
    static SoapFault actionNotSupported(const QString &action);
    static SoapFault notAuthorized();
    static SoapFault notPermitted();
    static SoapFault invalidArgument(const QString &subcode, const QString &reason);
    static SoapFault refused(const Refusal &refusal);

    QByteArray document() const;
};

} // namespace orrin::demo
