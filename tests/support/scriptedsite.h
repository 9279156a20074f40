// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/sitedescription.h"

namespace orrin::test {

/*! Builds descriptions of sites for tests, each call one part. */
class ScriptedSite
{
public:
    explicit ScriptedSite(quint64 uid, int serverId = 1);

    ScriptedSite &group(const QString &uid, const QString &name = {});
    ScriptedSite &name(const QString &name);
    ScriptedSite &version(const QString &version);
    ScriptedSite &timeZone(const QByteArray &iana);
    ScriptedSite &user(const QString &name, UserLevel level, const QSet<int> &permissions = {}, int id = 1);
    /*! A camera with one track; its sort id is ten times its id. */
    ScriptedSite &camera(int id, const QString &name = {});
    ScriptedSite &channel(const ChannelDescription &channel);
    /*! The user may not see the channel. */
    ScriptedSite &deny(int channelId);
    ScriptedSite &peer(quint64 uid, int serverId, const QString &host, int port);

    const SiteDescription &site() const { return m_site; }
    operator const SiteDescription &() const { return m_site; }

private:
    SiteDescription m_site;
};

} // namespace orrin::test
