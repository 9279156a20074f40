// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/sitedescription.h"

#include <QHash>

namespace orrin {

class ConnectionManager;
class Server;

namespace test {
class ScriptedConnector;
class ScriptedSession;
} // namespace test

/*! The root object with servers that a test describes: starts it and ends it. */
class TestSite
{
public:
    TestSite();
    ~TestSite();

    ConnectionManager &manager() const;

    /*! Logs in to a server that describes itself as \a site, and waits until the core is through. Null when it never was. */
    Server *login(const SiteDescription &site);
    /*! A login that a server refuses; waits for the error. */
    bool failLogin();
    /*! The server of \a site now describes itself so. */
    void describe(const SiteDescription &site);
    void lose(quint64 uid);
    /*! The server is back as it last described itself. */
    void restore(quint64 uid);
    void timeOutUser(quint64 uid);
    /*! Ends all sessions and deletes what belonged to them. */
    void logOut();

    /*! Deletes what waits for it. */
    static void deleteLeft();

private:
    test::ScriptedSession *session(quint64 uid) const;

    test::ScriptedConnector *m_connector; // owned by the root object
    QHash<quint64, SiteDescription> m_sites;
};

/*! A server alone with user "operator" who may do everything; \a group empty makes a group of its own. */
SiteDescription describeServer(quint64 uid, int serverId, const QString &group = {});
ChannelDescription describeCamera(int id, const QString &name = {});
TrackDescription describeTrack(int id, TrackType::Flag type = TrackType::Track1);
PeerDescription describePeer(const SiteDescription &site);

} // namespace orrin
