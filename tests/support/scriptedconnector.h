// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "scriptedsession.h"

#include "core/session/connector.h"

#include <QHash>
#include <QList>

namespace orrin::test {

/*! Makes scripted sessions and remembers them. A host with an answer set is answered by itself, by the event
    loop; all others wait for the test. One thread. */
class ScriptedConnector : public Connector
{
public:
    /*! Puts a new connector into the root object's connection manager, which owns it. */
    static ScriptedConnector *install();

    std::unique_ptr<Session> createSession(const CorvaneUrl &url, const SharedCredentials &credentials,
                                           bool asGroup, unsigned request) override;

    /*! A login at "host:port" from now on is answered with \a site, or refused with \a code. */
    void answer(const QString &hostAndPort, const SiteDescription &site);
    void refuse(const QString &hostAndPort, LoginError::Code code);

    /*! The sessions made and not yet deleted, oldest first. */
    QList<ScriptedSession *> sessions() const;
    /*! The newest session for "host:port"; null when there is none. */
    ScriptedSession *session(const QString &hostAndPort) const;
    ScriptedSession *lastSession() const;
    int createdCount() const { return m_created; }

private:
    QList<QPointer<ScriptedSession>> m_sessions;
    QHash<QString, SiteDescription> m_sites;
    QHash<QString, LoginError::Code> m_refusals;
    int m_created = 0;
};

} // namespace orrin::test
