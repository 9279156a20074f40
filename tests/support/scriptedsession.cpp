// SPDX-License-Identifier: GPL-3.0-or-later
#include "scriptedsession.h"

namespace orrin::test {

ScriptedSession::ScriptedSession(const CorvaneUrl &url, const SharedCredentials &credentials, bool asGroup,
                                 unsigned request)
    : m_url(url), m_credentials(credentials), m_asGroup(asGroup), m_request(request)
{
}

void ScriptedSession::open()
{
    m_opening = true;
}

void ScriptedSession::close()
{
    m_closed = true;
    m_endpoints.clear();
}

void ScriptedSession::requestMediaEndpoint(int channelId, StreamQuality quality, QObject *context,
                                           MediaEndpointCallback callback)
{
    m_endpoints.push_back({channelId, quality, context, std::move(callback)});
}

void ScriptedSession::requestPtz(int channelId, const PtzRequest &request, QObject *context, PtzCallback callback)
{
    m_ptzCalls.append({channelId, request});
    if (callback)
        m_ptzWaiting.push_front({request.kind, context, std::move(callback)});
}

bool ScriptedSession::answerPtz(PtzRequest::Kind kind, const PtzAnswer &answer)
{
    for (auto waiting = m_ptzWaiting.begin(); waiting != m_ptzWaiting.end(); ++waiting) {
        if (waiting->kind != kind || !waiting->context)
            continue;
        QMetaObject::invokeMethod(
            waiting->context, [callback = std::move(waiting->callback), answer] { callback(answer); },
            Qt::QueuedConnection);
        m_ptzWaiting.erase(waiting);
        return true;
    }
    return false;
}

void ScriptedSession::describe(const SiteDescription &site)
{
    Q_EMIT described(site);
}

void ScriptedSession::succeed()
{
    m_opening = false;
    Q_EMIT opened();
}

void ScriptedSession::logIn(const SiteDescription &site)
{
    describe(site);
    succeed();
}

void ScriptedSession::fail(LoginError::Code code, int lockoutSeconds)
{
    m_opening = false;
    LoginError error;
    error.error = code;
    error.server = m_url.host();
    error.port = static_cast<std::uint16_t>(m_url.port());
    error.request = m_request;
    error.asGroup = m_asGroup;
    error.lockoutSeconds = lockoutSeconds;
    error.loginData = LoginData(m_url.hostAndPort());
    Q_EMIT loginFailed(error);
}

void ScriptedSession::lose(int connectionError)
{
    Q_EMIT lost(ConnectionError(connectionError));
}

void ScriptedSession::restore()
{
    Q_EMIT restored();
}

void ScriptedSession::restore(const SiteDescription &site)
{
    describe(site);
    restore();
}

void ScriptedSession::timeOut()
{
    m_closed = true;
    Q_EMIT userTimedOut();
}

bool ScriptedSession::answerEndpoint(const MediaEndpointResult &result)
{
    if (m_endpoints.empty())
        return false;
    EndpointRequest request = std::move(m_endpoints.front());
    m_endpoints.pop_front();
    QMetaObject::invokeMethod(
        request.context ? request.context.data() : this,
        [callback = std::move(request.callback), result] { callback(result); }, Qt::QueuedConnection);
    return true;
}

} // namespace orrin::test
