// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "site/site.h"

#include <QHash>
#include <QMutex>

#include <chrono>

namespace orrin::demo {

/*! Why a login is refused although the credentials may be right. */
struct Refusal
{
    enum class Reason { None, TooManyConnections, OutsideHours, AccountLocked, AddressNotPermitted };
    Reason reason = Reason::None;
    int seconds = 0; //!< AccountLocked: the time that is left

    explicit operator bool() const { return reason != Reason::None; }

    /*! The reason as the site extension spells it. */
    QString name() const;
};

/*!
    Users and what is known of their logins: lock-out after wrong passwords, and refusals that were switched
   on by a command, for one recorder or all. Shared by the ONVIF, JSON and RTSP sides of both recorders; every
   function is thread-safe.
*/
class Accounts
{
public:
    /*! \a lockAfter wrong passwords in a row lock an account for \a lockTime; 0 never. */
    Accounts(QList<User> users, int lockAfter, std::chrono::seconds lockTime);

    std::optional<User> user(const QString &name) const;
    QList<User> users() const;

    /*! Counts a login with a wrong password; it locks the account when it was one too many. */
    void reportWrongPassword(const QString &name);
    void reportSuccess(const QString &name);

    /*! Locks an account by hand; 0 seconds unlock it. */
    void lock(const QString &name, std::chrono::seconds time);

    /*! What stands against a login of \a name to \a recorder with the right password. */
    Refusal refusal(int recorder, const QString &name) const;

    /*! The lock on the account of \a name, if there is one. */
    Refusal lockRefusal(const QString &name) const;

    /*! Every login to \a recorder is refused for this reason from now on; Reason::None ends it. */
    void setRefusal(int recorder, const Refusal &refusal);

private:
    using Clock = std::chrono::steady_clock;

    static int secondsUntil(Clock::time_point end);

    mutable QMutex m_mutex;
    const QList<User> m_users;
    const int m_lockAfter;
    const std::chrono::seconds m_lockTime;
    QHash<QString, int> m_wrongPasswords;
    QHash<QString, Clock::time_point> m_lockedUntil;
    QHash<int, Refusal> m_refusals;
    QHash<int, Clock::time_point> m_refusalSince;
};

} // namespace orrin::demo
