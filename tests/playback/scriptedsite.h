// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/session.h"

#include <QPointer>
#include <QSet>

/*! One server, 1 of its group, known to the connection manager as after a login; its user's rights are what a test says. Creates
    the root object; the destructor ends it. */
class ScriptedSite
{
public:
    ScriptedSite();
    ~ScriptedSite();
    ScriptedSite(const ScriptedSite &) = delete;
    ScriptedSite &operator=(const ScriptedSite &) = delete;

    /*! Logs in and waits for the server; false when it did not come. */
    bool logIn();
    /*! The user now has these rights, and no other. */
    void setPermissions(const QSet<int> &permissions);
    /*! Nobody is logged in there any more; the server stays. */
    void dropUser();

    int serverGroupId() const { return m_serverGroupId; }
    int serverId() const { return 1; }

private:
    QPointer<orrin::Session> m_session;
    orrin::SiteDescription m_site;
    int m_serverGroupId = -1;
};
