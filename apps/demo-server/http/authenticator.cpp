// SPDX-License-Identifier: GPL-3.0-or-later
#include "http/authenticator.h"

namespace orrin::demo {

Authenticator::Authenticator(const RecorderInfo &recorder, std::shared_ptr<Accounts> accounts,
                             DeviceClock clock)
    : m_recorder(recorder.id)
    , m_accounts(std::move(accounts))
    , m_digest(recorder.name)
    , m_usernameToken(clock)
{
}

Authenticator::Result Authenticator::checkDigest(const HttpRequest &request)
{
    const DigestAuth::Result digest = m_digest.check(request, *m_accounts);
    switch (digest.outcome) {
    case DigestAuth::Outcome::Accepted:
        return accept(digest.user);
    case DigestAuth::Outcome::Wrong:
        return reject(digest.user);
    case DigestAuth::Outcome::Stale:
        return {std::nullopt, {}, true};
    case DigestAuth::Outcome::NoCredentials:
        break;
    }
    return {};
}

Authenticator::Result Authenticator::checkUsernameToken(const XmlElement &token)
{
    const QString name = token.childText(u"Username");
    switch (m_usernameToken.check(token, *m_accounts)) {
    case UsernameToken::Outcome::Accepted:
        return accept(name);
    case UsernameToken::Outcome::Wrong:
        return reject(name);
    case UsernameToken::Outcome::Stale:
        break;
    }
    return {};
}

Authenticator::Result Authenticator::accept(const QString &name)
{
    if (const Refusal refusal = m_accounts->refusal(m_recorder, name))
        return {std::nullopt, refusal, false};
    m_accounts->reportSuccess(name);
    return {m_accounts->user(name), {}, false};
}

Authenticator::Result Authenticator::reject(const QString &name)
{
    if (const Refusal refusal = m_accounts->lockRefusal(name))
        return {std::nullopt, refusal, false};
    m_accounts->reportWrongPassword(name);
    return {};
}

} // namespace orrin::demo
