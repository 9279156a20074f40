// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>
#include <QHash>
#include <QString>

#include <chrono>
#include <optional>

namespace orrin::demo {

/*! The client sessions of one recorder: opened, used, closed, or forgotten when they were not used for a
 * while. GUI thread. */
class Sessions
{
public:
    static constexpr std::chrono::seconds Timeout{60};

    /*! At most \a maximum sessions at a time. */
    explicit Sessions(int maximum) : m_maximum(maximum) {}

    /*! Opens a session of \a user: its id, or nothing when all are in use. */
    std::optional<QString> open(const QString &user);

    /*! Marks the session as used. False when \a user has no such session. */
    bool use(const QString &id, const QString &user);

    /*! Ends the session. False when \a user has no such session. */
    bool close(const QString &id, const QString &user);

    void closeAll() { m_sessions.clear(); }
    int count();

private:
    struct Session
    {
        QString user;
        QElapsedTimer unused;
    };

    void removeExpired();

    int m_maximum;
    QHash<QString, Session> m_sessions;
};

} // namespace orrin::demo
