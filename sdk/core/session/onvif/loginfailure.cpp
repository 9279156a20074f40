// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/onvif/loginfailure.h"

#include "core/session/onvif/siteextensionclient.h"
#include "core/session/onvif/soapanswer.h"

namespace orrin {

LoginFailure LoginFailure::fromProbe(TlsProbe::Outcome outcome, const QString &detail)
{
    switch (outcome) {
    case TlsProbe::Outcome::UnknownHost:
    case TlsProbe::Outcome::Unreachable:
        return {LoginError::ServerNotAvailable, detail, 0, {}};
    case TlsProbe::Outcome::Refused:
        return {LoginError::ConnectionFailed, detail, 0, {}};
    case TlsProbe::Outcome::NoTls:
        return {LoginError::FailedToSetupConnection, detail, 0, {}};
    case TlsProbe::Outcome::Encrypted:
        break;
    }
    return {LoginError::UnknownError, detail, 0, {}};
}

LoginFailure LoginFailure::fromRefusal(const Refusal &refusal)
{
    switch (refusal.reason) {
    case Refusal::Reason::TooManyConnections:
        return {LoginError::TooManyOpenConnections, {}, 0, {}};
    case Refusal::Reason::OutsideHours:
        return {LoginError::LoginNotPermitted, {}, 0, {}};
    case Refusal::Reason::AccountLocked:
        return {LoginError::AccountLocked, {}, refusal.seconds, {}};
    case Refusal::Reason::AddressNotPermitted:
        return {LoginError::AddressNotPermitted, {}, 0, {}};
    }
    return {};
}

std::optional<LoginFailure> LoginFailure::fromTransport(const TransportResult &transport)
{
    switch (transport.failure) {
    case TransportResult::Failure::None:
        break;
    case TransportResult::Failure::KeyChanged:
        return LoginFailure{LoginError::PublicKeyChanged, transport.detail, 0, {}};
    case TransportResult::Failure::Refused:
        return LoginFailure{LoginError::ConnectionFailed, transport.detail, 0, {}};
    default:
        return LoginFailure{LoginError::FailedToSetupConnection, transport.detail, 0, {}};
    }
    if (transport.status == 503)
        return LoginFailure{LoginError::TooManyOpenConnections, QStringLiteral("HTTP status 503"), 0, {}};
    if (transport.status == 423)
        return LoginFailure{
            LoginError::AccountLocked, QStringLiteral("HTTP status 423"), transport.retryAfter, {}};
    return {};
}

LoginFailure LoginFailure::fromSoap(const SoapAnswer &answer)
{
    if (answer.refusal)
        return fromRefusal(*answer.refusal);
    if (const auto failure = fromTransport(answer.transport))
        return *failure;
    if (answer.isNotAuthorised())
        return {LoginError::BadLogin, answer.reason, 0, {}};
    if (answer.kind == SoapAnswer::Kind::NotSoap) {
        return {LoginError::FailedToSetupConnection,
                QStringLiteral("HTTP status %1, no SOAP answer").arg(answer.transport.status),
                0,
                {}};
    }
    return {LoginError::UnknownError, answer.reason, 0, {}};
}

LoginFailure LoginFailure::fromSite(const SiteAnswer &answer)
{
    if (answer.refusal)
        return fromRefusal(*answer.refusal);
    if (const auto failure = fromTransport(answer.transport))
        return *failure;
    if (answer.transport.status == 401)
        return {LoginError::BadLogin, {}, 0, {}};
    return {LoginError::FailedToSetupConnection,
            QStringLiteral("HTTP status %1 of the site extension").arg(answer.transport.status),
            0,
            {}};
}

} // namespace orrin
