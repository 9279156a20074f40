// SPDX-License-Identifier: GPL-3.0-or-later
#include "site/accounts.h"

#include <algorithm>

namespace orrin::demo {

using namespace Qt::StringLiterals;

QString Refusal::name() const
{
    switch (reason) {
    case Reason::TooManyConnections:
        return u"TooManyConnections"_s;
    case Reason::OutsideHours:
        return u"OutsideHours"_s;
    case Reason::AccountLocked:
        return u"AccountLocked"_s;
    case Reason::AddressNotPermitted:
        return u"AddressNotPermitted"_s;
    case Reason::None:
        break;
    }
    return {};
}

Accounts::Accounts(QList<User> users, int lockAfter, std::chrono::seconds lockTime)
    : m_users(std::move(users)), m_lockAfter(lockAfter), m_lockTime(lockTime)
{
}

std::optional<User> Accounts::user(const QString &name) const
{
    const auto found = std::ranges::find(m_users, name, &User::name);
    return found == m_users.cend() ? std::nullopt : std::optional(*found);
}

QList<User> Accounts::users() const
{
    return m_users;
}

void Accounts::reportWrongPassword(const QString &name)
{
    // Only known names are counted: a stranger cannot make the table grow.
    if (m_lockAfter <= 0 || !user(name))
        return;
    const QMutexLocker locker(&m_mutex);
    if (++m_wrongPasswords[name] < m_lockAfter)
        return;
    m_wrongPasswords.remove(name);
    m_lockedUntil[name] = Clock::now() + m_lockTime;
}

void Accounts::reportSuccess(const QString &name)
{
    const QMutexLocker locker(&m_mutex);
    m_wrongPasswords.remove(name);
}

void Accounts::lock(const QString &name, std::chrono::seconds time)
{
    const QMutexLocker locker(&m_mutex);
    m_wrongPasswords.remove(name);
    if (time.count() > 0)
        m_lockedUntil[name] = Clock::now() + time;
    else
        m_lockedUntil.remove(name);
}

int Accounts::secondsUntil(Clock::time_point end)
{
    return int(std::chrono::ceil<std::chrono::seconds>(end - Clock::now()).count());
}

Refusal Accounts::lockRefusal(const QString &name) const
{
    const QMutexLocker locker(&m_mutex);
    const auto locked = m_lockedUntil.constFind(name);
    const int left = locked == m_lockedUntil.cend() ? 0 : secondsUntil(*locked);
    return left > 0 ? Refusal{Refusal::Reason::AccountLocked, left} : Refusal{};
}

Refusal Accounts::refusal(int recorder, const QString &name) const
{
    if (const Refusal lock = lockRefusal(name))
        return lock;
    const QMutexLocker locker(&m_mutex);
    Refusal refusal = m_refusals.value(recorder);
    if (refusal.reason == Refusal::Reason::AccountLocked) {
        const int left = secondsUntil(m_refusalSince.value(recorder) + std::chrono::seconds(refusal.seconds));
        if (left <= 0)
            return {};
        refusal.seconds = left;
    }
    return refusal;
}

void Accounts::setRefusal(int recorder, const Refusal &refusal)
{
    const QMutexLocker locker(&m_mutex);
    m_refusals[recorder] = refusal;
    m_refusalSince[recorder] = Clock::now();
}

} // namespace orrin::demo
