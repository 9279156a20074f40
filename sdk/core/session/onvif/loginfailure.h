// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/onvif/tlsprobe.h"

#include <contract/core/export.h>
#include <contract/core/loginerror.h>

#include <QByteArray>
#include <QString>

#include <optional>

namespace orrin {

class SoapAnswer;
struct Refusal;
struct SiteAnswer;
struct TransportResult;

/*! Why an attempt to log in failed, before the session puts its own name to it. A value. */
struct ORRINSDK_CORE_EXPORT LoginFailure
{
    LoginError::Code code = LoginError::UnknownError;
    QString detail; //!< for the log
    int lockoutSeconds = 0;
    QByteArray derKey; //!< the key that a server showed in place of the trusted one

    static LoginFailure fromProbe(TlsProbe::Outcome outcome, const QString &detail);
    static LoginFailure fromSoap(const SoapAnswer &answer);
    static LoginFailure fromSite(const SiteAnswer &answer);

private:
    static LoginFailure fromRefusal(const Refusal &refusal);
    static std::optional<LoginFailure> fromTransport(const TransportResult &transport);
};

} // namespace orrin
