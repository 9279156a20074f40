// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "http/digestauth.h"
#include "onvif/usernametoken.h"
#include "site/accounts.h"

#include <memory>

namespace orrin::demo {

/*!
    Decides about the logins of one recorder's HTTPS port: by HTTP digest or WS-UsernameToken, with lock-out
   after wrong passwords and the refusals that are switched on. A locked account is refused whatever the
   password; other refusals show to those who know it. GUI thread.
*/
class Authenticator
{
public:
    struct Result
    {
        std::optional<User> user; //!< who logged in; empty when nobody did
        Refusal refusal;          //!< why the login is refused, with no user then
        bool stale = false;       //!< the password was right, the nonce was not: the client may try again
    };

    Authenticator(const RecorderInfo &recorder, std::shared_ptr<Accounts> accounts, DeviceClock clock);

    Result checkDigest(const HttpRequest &request);
    Result checkUsernameToken(const XmlElement &token);

    /*! The WWW-Authenticate headers of a 401. */
    QList<QByteArray> challenges(bool stale) { return m_digest.challenges(stale); }

private:
    Result accept(const QString &name);
    Result reject(const QString &name);

    int m_recorder;
    std::shared_ptr<Accounts> m_accounts;
    DigestAuth m_digest;
    UsernameToken m_usernameToken;
};

} // namespace orrin::demo
