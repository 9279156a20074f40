// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "onvif/soaprequest.h"
#include "site/accounts.h"
#include "site/deviceclock.h"

#include <QHash>

#include <chrono>

namespace orrin::demo {

/*!
    Checks WS-UsernameToken credentials with a password digest: made within five minutes of the device's
   clock, each nonce accepted once, a nonce of at most 64 bytes. GUI thread.
*/
class UsernameToken
{
public:
    static constexpr std::chrono::minutes Window{5};

    explicit UsernameToken(DeviceClock clock) : m_clock(clock) {}

    /*! Stale: the password was known, but the time is off or the token was used before. */
    enum class Outcome { Wrong, Stale, Accepted };

    Outcome check(const XmlElement &token, const Accounts &accounts);

private:
    DeviceClock m_clock;
    QHash<QByteArray, qint64> m_usedUntilMs;
};

} // namespace orrin::demo
