// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "http/authenticator.h"
#include "http/httpreply.h"
#include "http/httprequest.h"
#include "site/changelog.h"
#include "site/sessions.h"
#include "site/site.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <map>
#include <memory>

class QJsonArray;

namespace orrin::demo {

/*! The JSON service of one recorder: the site's description, client sessions, and the long poll for changes.
 * GUI thread. */
class SiteService : public QObject
{
    Q_OBJECT

public:
    static constexpr std::chrono::seconds PollTime{20};

    /*! The HTTPS port of the recorder with this id, 0 while it does not listen. */
    using PortOf = std::function<quint16(int recorder)>;

    /*! \a site, \a authenticator and \a changes outlive the service. */
    SiteService(const Site &site, const RecorderInfo &recorder, Authenticator &authenticator,
                ChangeLog &changes, int maximumSessions, PortOf portOf);
    ~SiteService() override;

    /*! \a path is the part after /orrin/v1/. */
    void handle(const QString &path, const HttpRequest &request, HttpReply reply);

    /*! Forgets all sessions and answers what waits, as a server that starts anew. */
    void reset();

    int sessionCount() { return m_sessions.count(); }

private:
    struct Poll
    {
        HttpReply reply;
        qint64 after = 0;
        std::unique_ptr<QTimer> timer;
    };

    void getSite(const User &user, const HttpRequest &request, HttpReply reply);
    void openSession(const User &user, HttpReply reply);
    void closeSession(const User &user, const QString &id, HttpReply reply);
    void getChanges(const User &user, const HttpRequest &request, HttpReply reply);
    void answerPolls();
    void answer(HttpReply reply, qint64 after);
    void finishPoll(const QString &session);
    QJsonArray cameras(const User &user) const;
    QJsonArray peers(const HttpRequest &request) const;

    const Site &m_site;
    const RecorderInfo &m_recorder;
    Authenticator &m_authenticator;
    ChangeLog &m_changes;
    PortOf m_portOf;
    Sessions m_sessions;
    std::map<QString, Poll> m_polls; // one at most for each session
};

} // namespace orrin::demo
