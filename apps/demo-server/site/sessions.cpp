// SPDX-License-Identifier: GPL-3.0-or-later
#include "site/sessions.h"

#include <QUuid>

namespace orrin::demo {

std::optional<QString> Sessions::open(const QString &user)
{
    removeExpired();
    if (m_sessions.size() >= m_maximum)
        return std::nullopt;
    const QString id = QUuid::createUuid().toString(QUuid::Id128);
    Session session{user, {}};
    session.unused.start();
    m_sessions.insert(id, session);
    return id;
}

bool Sessions::use(const QString &id, const QString &user)
{
    removeExpired();
    const auto session = m_sessions.find(id);
    if (session == m_sessions.end() || session->user != user)
        return false;
    session->unused.restart();
    return true;
}

bool Sessions::close(const QString &id, const QString &user)
{
    if (!use(id, user))
        return false;
    m_sessions.remove(id);
    return true;
}

int Sessions::count()
{
    removeExpired();
    return int(m_sessions.size());
}

void Sessions::removeExpired()
{
    m_sessions.removeIf([](const auto &entry) { return entry->unused.durationElapsed() > Timeout; });
}

} // namespace orrin::demo
