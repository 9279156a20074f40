// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/connector.h"
#include "core/siteregistry.h"

#include <contract/core/export.h>

#include <QObject>
#include <QSet>

#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace orrin {

class ConnectionManager;
class LoginError;

/*! The logic of the ConnectionManager: logins, their sessions, and what becomes of what they report. Main
    thread.

    A login is one call of connectToServer(); it has a link for the server named and, for a group, one for
    each peer. A link owns its session and knows its server. Links are shared pointers, since a receiver of a
    signal may end all sessions while a handler of this class runs; each handler tests its link after every
    signal. */
class ORRINSDK_CORE_EXPORT ConnectionManagerPrivate : public QObject
{
public:
    /*! Peers of one login that are followed; a site that lists more is cut there. */
    static constexpr qsizetype PeerLimit = 256;

    explicit ConnectionManagerPrivate(ConnectionManager *q);
    ~ConnectionManagerPrivate() override;

    /*! Replaces the maker of sessions, for tests; sessions that exist stay. */
    void setConnector(std::unique_ptr<Connector> connector);

    int connectToServer(const CorvaneUrl &url, const SharedCredentials &credentials, bool asGroup);
    void disconnectFromAll();

    Server *serverByUid(quint64 uid) const { return m_registry.serverByUid(uid); }
    const SiteRegistry &registry() const { return m_registry; }

private:
    struct Login
    {
        SharedCredentials credentials;
        bool asGroup = false;
        bool succeeded = false;
        bool complete = false;
        int pending = 0;
        QSet<quint64> peersTried;
    };
    struct Link
    {
        unsigned request = 0;
        CorvaneUrl url;
        SharedCredentials credentials;
        bool asGroup = false;
        bool asPeer = false; // opened because another server of the group named it
        bool opened = false;
        bool online = false;
        bool closed = false;
        Session *session = nullptr; // owned; goes with deleteLater()
        SiteDescription site;
        QPointer<Server> server;
        QSet<quint64> peers; // as last described
    };
    using LinkPtr = std::shared_ptr<Link>;

    void startLink(unsigned request, const CorvaneUrl &url, bool asPeer);
    void connectSession(const LinkPtr &link);
    void closeLink(const LinkPtr &link);
    LinkPtr linkOfServer(const Server *server) const;

    void onDescribed(const LinkPtr &link, const SiteDescription &site);
    void onOpened(const LinkPtr &link);
    void onLoginFailed(const LinkPtr &link, const LoginError &error);
    void onLost(const LinkPtr &link, const ConnectionError &error);
    void onRestored(const LinkPtr &link);
    void onUserTimedOut(const LinkPtr &link);

    void bindServer(const LinkPtr &link);
    bool replacesOlderLink(const LinkPtr &link, const LinkPtr &older) const;
    void followPeers(const LinkPtr &link, bool duringLogin);
    void dropPeersThatLeft(const LinkPtr &link);
    void finishLogin(unsigned request, bool succeeded);

    ConnectionManager *q;
    std::unique_ptr<Connector> m_connector;
    SiteRegistry m_registry;
    std::vector<LinkPtr> m_links;
    std::map<unsigned, Login> m_logins;
    unsigned m_lastRequest = 0;
};

} // namespace orrin
