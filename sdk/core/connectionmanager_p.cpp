// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/connectionmanager_p.h"

#include "core/events/eventrecorder.h"
#include "core/resources/server_p.h"

#include <contract/core/connectionmanager.h>
#include <contract/core/currentuser.h>
#include <contract/core/loginerror.h>
#include <contract/core/server.h>
#include <contract/core/servergroup.h>

#include <algorithm>

namespace orrin {

namespace {

unsigned userNumber(const Server *server)
{
    const QSharedPointer<CurrentUser> user = server->currentUser();
    if (!user)
        return 0;
    const std::variant<UserId, UserLId> id = user->id();
    if (const auto *global = std::get_if<UserId>(&id))
        return static_cast<unsigned>(global->id);
    return static_cast<unsigned>(std::get<UserLId>(id).id);
}

} // namespace

ConnectionManagerPrivate::ConnectionManagerPrivate(ConnectionManager *q) : q(q), m_registry(q) {}

ConnectionManagerPrivate::~ConnectionManagerPrivate()
{
    // The event loop may run no more: what deleteLater() would do is done here.
    for (const LinkPtr &link : m_links) {
        link->closed = true;
        link->session->disconnect(this);
        delete link->session;
    }
}

void ConnectionManagerPrivate::setConnector(std::unique_ptr<Connector> connector)
{
    m_connector = std::move(connector);
}

int ConnectionManagerPrivate::connectToServer(const CorvaneUrl &url, const SharedCredentials &credentials,
                                              bool asGroup)
{
    const unsigned request = ++m_lastRequest;
    if (!url.isValid() || !m_connector) {
        LoginError error;
        error.error = LoginError::ServerNotAvailable;
        error.server = url.host();
        error.port = static_cast<std::uint16_t>(url.port());
        error.request = request;
        error.asGroup = asGroup;
        QMetaObject::invokeMethod(this, [this, error] { Q_EMIT q->loginError(error); }, Qt::QueuedConnection);
        return static_cast<int>(request);
    }
    Login login;
    login.credentials = credentials;
    login.asGroup = asGroup;
    m_logins.emplace(request, std::move(login));
    startLink(request, url, false);
    return static_cast<int>(request);
}

void ConnectionManagerPrivate::disconnectFromAll()
{
    m_logins.clear();
    const std::vector<LinkPtr> links = m_links;
    for (const LinkPtr &link : links)
        closeLink(link);
    const unsigned count = m_registry.clear();
    QMetaObject::invokeMethod(
        this, [this, count] { Q_EMIT q->allServersDisconnected(count); }, Qt::QueuedConnection);
}

void ConnectionManagerPrivate::startLink(unsigned request, const CorvaneUrl &url, bool asPeer)
{
    Login &login = m_logins.at(request);
    const auto link = std::make_shared<Link>();
    link->request = request;
    link->url = url;
    link->credentials = login.credentials;
    link->asGroup = login.asGroup;
    link->asPeer = asPeer;
    link->session = m_connector->createSession(url, login.credentials, login.asGroup, request).release();
    ++login.pending;
    m_links.push_back(link);
    connectSession(link);
    link->session->open();
}

void ConnectionManagerPrivate::connectSession(const LinkPtr &link)
{
    const std::weak_ptr<Link> weak = link;
    const auto handler = [this, weak](auto member) {
        return [this, weak, member](const auto &...arguments) {
            if (const LinkPtr link = weak.lock(); link && !link->closed)
                (this->*member)(link, arguments...);
        };
    };
    Session *session = link->session;
    using Private = ConnectionManagerPrivate;
    connect(session, &Session::described, this, handler(&Private::onDescribed));
    connect(session, &Session::opened, this, handler(&Private::onOpened));
    connect(session, &Session::loginFailed, this, handler(&Private::onLoginFailed));
    connect(session, &Session::lost, this, handler(&Private::onLost));
    connect(session, &Session::restored, this, handler(&Private::onRestored));
    connect(session, &Session::userTimedOut, this, handler(&Private::onUserTimedOut));

    connect(session, &Session::eventsReceived, this, [weak](const QList<EventDescription> &events) {
        const LinkPtr link = weak.lock();
        if (link && !link->closed && link->server)
            eventrecorder::record(*link->server, events);
    });
    connect(session, &Session::eventCausesKnown, this, [weak](const QStringList &causes) {
        const LinkPtr link = weak.lock();
        if (link && !link->closed && link->server)
            eventrecorder::noteCauses(link->server->uniqueId(), causes);
    });

    // What the server tells of itself goes on as it is, with the server's uid in front.
    const auto forward = [weak](auto signal) {
        return [weak, signal](const auto &...arguments) {
            const LinkPtr link = weak.lock();
            if (link && !link->closed && link->server)
                Q_EMIT(link->server.data()->*signal)(link->server->uniqueId(), arguments...);
        };
    };
    connect(session, &Session::statusChanged, this, forward(&Server::statusChange));
    connect(session, &Session::restartRequested, this, forward(&Server::restartRequested));
    connect(session, &Session::rebootRequested, this, forward(&Server::rebootMachineRequested));
    connect(session, &Session::shutdownRequested, this, forward(&Server::shutdownRequested));
}

void ConnectionManagerPrivate::closeLink(const LinkPtr &link)
{
    if (link->closed)
        return;
    link->closed = true;
    link->session->disconnect(this);
    link->session->close();
    link->session->deleteLater();
    std::erase(m_links, link);
}

ConnectionManagerPrivate::LinkPtr ConnectionManagerPrivate::linkOfServer(const Server *server) const
{
    const auto found = std::find_if(m_links.begin(), m_links.end(), [server](const LinkPtr &link) {
        return server && link->server == server;
    });
    return found == m_links.end() ? nullptr : *found;
}

void ConnectionManagerPrivate::onDescribed(const LinkPtr &link, const SiteDescription &site)
{
    link->site = site;
    // Until the session is open nobody knows the server, and while it is lost it may come back as another
    // one: both are settled when the session says that it stands.
    if (!link->opened || !link->online)
        return;
    const QPointer<Server> before = link->server;
    bindServer(link);
    // It moved to another group, where it is another object.
    if (!link->closed && link->server && link->server != before)
        Q_EMIT q->serverConnected(link->server);
    if (!link->closed)
        followPeers(link, false);
}

void ConnectionManagerPrivate::onOpened(const LinkPtr &link)
{
    link->opened = true;
    LinkPtr standing = link;
    Server *known = m_registry.serverByUid(link->site.serverUid);
    if (const LinkPtr older = linkOfServer(known)) {
        if (replacesOlderLink(link, older)) {
            closeLink(older);
        } else {
            older->site = link->site;
            older->asGroup = link->asGroup;
            older->request = link->request;
            older->asPeer = older->asPeer && link->asPeer;
            standing = older;
            closeLink(link);
        }
    }
    const bool returned = known && !known->isOnline();
    standing->online = true;
    bindServer(standing);
    const QPointer<Server> server = standing->server;
    if (!standing->closed && server && returned && server == known) {
        Q_EMIT server->reconnected(server->uniqueId());
        if (server)
            Q_EMIT q->serverReconnected(server);
    }
    if (!standing->closed && server)
        Q_EMIT q->serverConnected(server);
    if (!standing->closed)
        followPeers(standing, true);
    finishLogin(link->request, true);
}

bool ConnectionManagerPrivate::replacesOlderLink(const LinkPtr &link, const LinkPtr &older) const
{
    // Another user has other rights, and a session that is lost may be trying an address that is no longer
    // right.
    return !older->online || older->credentials->user != link->credentials->user ||
           older->credentials->password != link->credentials->password;
}

void ConnectionManagerPrivate::onLoginFailed(const LinkPtr &link, const LoginError &error)
{
    const unsigned request = link->request;
    closeLink(link);
    Q_EMIT q->loginError(error);
    finishLogin(request, false);
}

void ConnectionManagerPrivate::onLost(const LinkPtr &link, const ConnectionError &error)
{
    if (!link->online)
        return;
    link->online = false;
    const QPointer<Server> server = link->server;
    if (!server)
        return;
    server->d_func()->online = false;
    Q_EMIT server->error(server->uniqueId(), error);
    if (server)
        Q_EMIT server->offline(server->uniqueId());
    if (server)
        Q_EMIT q->serverOffline(server);
}

void ConnectionManagerPrivate::onRestored(const LinkPtr &link)
{
    if (link->online)
        return;
    link->online = true;
    const QPointer<Server> before = link->server;
    bindServer(link);
    const QPointer<Server> server = link->server;
    if (link->closed || !server)
        return;
    if (server == before) {
        Q_EMIT server->reconnected(server->uniqueId());
        if (server)
            Q_EMIT q->serverReconnected(server);
    } else {
        Q_EMIT q->serverConnected(server);
    }
    if (!link->closed)
        followPeers(link, false);
}

void ConnectionManagerPrivate::onUserTimedOut(const LinkPtr &link)
{
    const QPointer<Server> server = link->server;
    closeLink(link);
    if (!server)
        return;
    const unsigned user = userNumber(server);
    server->d_func()->online = false;
    server->d_func()->session = nullptr;
    Q_EMIT server->userConnectionTimedOut(server->uniqueId());
    if (server)
        Q_EMIT q->userConnectionTimedOut(static_cast<unsigned>(server->uniqueId() & 0xffffffffu), user);
    if (server)
        Q_EMIT server->offline(server->uniqueId());
    if (server)
        Q_EMIT q->serverOffline(server);
}

/*! Finds or makes the server of the link's description and applies the description to it. */
void ConnectionManagerPrivate::bindServer(const LinkPtr &link)
{
    if (link->server && link->server->uniqueId() != link->site.serverUid)
        m_registry.remove(link->server);
    Server *server = m_registry.bind(link->site, link->url);
    if (const LinkPtr other = linkOfServer(server); other && other != link)
        closeLink(other);
    link->server = server;
    server->d_func()->session = link->session;
    server->d_func()->online = link->online;
    const bool isNew = server->serverProfile() == nullptr && !server->currentUser();
    if (server->d_func()->apply(server, link->site) && !isNew)
        Q_EMIT server->facilitiesUpdated(server->uniqueId());
}

void ConnectionManagerPrivate::followPeers(const LinkPtr &link, bool duringLogin)
{
    dropPeersThatLeft(link);
    const QList<PeerDescription> peers = link->site.peers;
    const auto login = m_logins.find(link->request);
    if (!link->asGroup || login == m_logins.end())
        return;
    const unsigned request = link->request;
    login->second.peersTried.insert(link->site.serverUid);
    for (const PeerDescription &peer : peers) {
        // Looked up anew each time: a receiver of serverConnected() may end all sessions.
        const auto current = m_logins.find(request);
        if (current == m_logins.end() || current->second.peersTried.size() > PeerLimit)
            return;
        if (peer.uid == 0 || current->second.peersTried.contains(peer.uid))
            continue;
        current->second.peersTried.insert(peer.uid);
        Server *known = m_registry.serverByUid(peer.uid);
        if (known && known->isOnline()) {
            if (duringLogin)
                Q_EMIT q->serverConnected(known);
            continue;
        }
        const CorvaneUrl url(peer.host.isEmpty() ? link->url.host() : peer.host, peer.port);
        if (url.isValid() && url.port() > 0)
            startLink(request, url, true);
    }
}

void ConnectionManagerPrivate::dropPeersThatLeft(const LinkPtr &link)
{
    QSet<quint64> present;
    for (const PeerDescription &peer : std::as_const(link->site.peers))
        present.insert(peer.uid);
    // Only a server that was listed before has left: one that was never listed is there by a login of its
    // own.
    const QSet<quint64> gone = link->peers - present;
    link->peers = present;
    for (const quint64 uid : gone) {
        Server *server = m_registry.serverByUid(uid);
        if (!server || server == link->server || !link->server)
            continue;
        const LinkPtr theirs = linkOfServer(server);
        // One that told first that it left stands in a group of its own by now. Of those only one that was
        // logged in to for itself stays.
        const bool cameAlong = theirs && theirs->asPeer && theirs->request == link->request;
        if (server->group() != link->server->group() && !cameAlong)
            continue;
        if (theirs)
            closeLink(theirs);
        m_registry.remove(server);
        if (const auto login = m_logins.find(link->request); login != m_logins.end())
            login->second.peersTried.remove(uid);
    }
}

void ConnectionManagerPrivate::finishLogin(unsigned request, bool succeeded)
{
    const auto login = m_logins.find(request);
    if (login == m_logins.end())
        return;
    login->second.succeeded |= succeeded;
    if (--login->second.pending > 0 || login->second.complete)
        return;
    if (login->second.succeeded) {
        // The login stays known: it holds the credentials for peers that join the group later.
        login->second.complete = true;
        Q_EMIT q->initialConnectionComplete();
    } else {
        m_logins.erase(login);
    }
}

} // namespace orrin
