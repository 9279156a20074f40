// SPDX-License-Identifier: GPL-3.0-or-later
#include "scriptedconnector.h"

#include "core/connectionmanager_p.h"

#include <contract/core/connectionmanager.h>
#include <contract/core/orrinsdk.h>

namespace orrin::test {

ScriptedConnector *ScriptedConnector::install()
{
    auto made = std::make_unique<ScriptedConnector>();
    ScriptedConnector *connector = made.get();
    OrrinSDK::instance()->connectionManager()->d_func()->setConnector(std::move(made));
    return connector;
}

std::unique_ptr<Session> ScriptedConnector::createSession(const CorvaneUrl &url,
                                                          const SharedCredentials &credentials, bool asGroup,
                                                          unsigned request)
{
    auto session = std::make_unique<ScriptedSession>(url, credentials, asGroup, request);
    ScriptedSession *made = session.get();
    m_sessions.append(made);
    ++m_created;
    const QString host = url.hostAndPort();
    const auto soon = [made](auto step) {
        QMetaObject::invokeMethod(
            made,
            [made, step] {
                if (!made->isClosed())
                    step();
            },
            Qt::QueuedConnection);
    };
    if (m_refusals.contains(host))
        soon([made, code = m_refusals.value(host)] { made->fail(code); });
    else if (m_sites.contains(host))
        soon([made, site = m_sites.value(host)] { made->logIn(site); });
    return session;
}

void ScriptedConnector::answer(const QString &hostAndPort, const SiteDescription &site)
{
    m_refusals.remove(hostAndPort);
    m_sites.insert(hostAndPort, site);
}

void ScriptedConnector::refuse(const QString &hostAndPort, LoginError::Code code)
{
    m_refusals.insert(hostAndPort, code);
}

QList<ScriptedSession *> ScriptedConnector::sessions() const
{
    QList<ScriptedSession *> alive;
    for (const QPointer<ScriptedSession> &session : m_sessions) {
        if (session)
            alive.append(session);
    }
    return alive;
}

ScriptedSession *ScriptedConnector::session(const QString &hostAndPort) const
{
    for (auto it = m_sessions.crbegin(); it != m_sessions.crend(); ++it) {
        if (*it && (*it)->url().hostAndPort() == hostAndPort)
            return *it;
    }
    return nullptr;
}

ScriptedSession *ScriptedConnector::lastSession() const
{
    const QList<ScriptedSession *> alive = sessions();
    return alive.isEmpty() ? nullptr : alive.last();
}

} // namespace orrin::test
