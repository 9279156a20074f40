// SPDX-License-Identifier: GPL-3.0-or-later
#include "site/siteservice.h"

#include "recordings/recordedspans.h"
#include "recordings/recordings.h"
#include "site/statistics.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QRegularExpression>

namespace orrin::demo {

using namespace Qt::StringLiterals;

namespace {

// The numbers of the site extension.
constexpr int PlayBack = 16;
constexpr int Ptzf = 17;
constexpr int SeeBehindMasks = 24;

QJsonArray permissions(UserLevel level)
{
    switch (level) {
    case UserLevel::Administrator:
    case UserLevel::Installer:
        return {PlayBack, Ptzf, SeeBehindMasks};
    case UserLevel::Operator:
        return {PlayBack, Ptzf};
    case UserLevel::User:
        break;
    }
    return {};
}

/*! The tokens of a track's recordings, for those who may play back. */
QJsonObject recordingTokens(const Camera &camera, const Track &track, const User &user)
{
    if (!user.mayPlayBack() || !camera.permittedFor(user.name))
        return {};
    const recordings::Ref high{&camera, &track, &camera.profiles.first()};
    const recordings::Ref low{&camera, &track, &camera.profiles.last()};
    return {{u"high"_s, high.token()}, {u"low"_s, low.token()}};
}

void sendRefusal(const Refusal &refusal, HttpReply reply)
{
    QJsonObject object{{u"refusal"_s, refusal.name()}};
    if (refusal.reason == Refusal::Reason::AccountLocked)
        object.insert(u"seconds"_s, refusal.seconds);
    reply.sendJson(403, object);
}

} // namespace

SiteService::SiteService(const Site &site, const RecorderInfo &recorder, Authenticator &authenticator,
                         ChangeLog &changes, int maximumSessions, PortOf portOf)
    : m_site(site)
    , m_recorder(recorder)
    , m_authenticator(authenticator)
    , m_changes(changes)
    , m_portOf(std::move(portOf))
    , m_sessions(maximumSessions)
{
    connect(&m_changes, &ChangeLog::advanced, this, &SiteService::answerPolls);
}

SiteService::~SiteService() = default;

void SiteService::handle(const QString &path, const HttpRequest &request, HttpReply reply)
{
    const Authenticator::Result login = m_authenticator.checkDigest(request);
    if (login.refusal)
        return sendRefusal(login.refusal, std::move(reply));
    if (!login.user) {
        QList<HttpReply::Header> headers;
        const auto challenges = m_authenticator.challenges(login.stale);
        for (const QByteArray &challenge : challenges)
            headers.append({"WWW-Authenticate", challenge});
        return reply.sendJson(401, {}, headers);
    }
    const User &user = *login.user;
    if (path == "site"_L1 && request.method == "GET")
        return getSite(user, request, std::move(reply));
    if (path == "spans"_L1 && request.method == "GET")
        return recordedspans::answer(m_recorder, user, m_recorder.clock.nowMs(), request, std::move(reply));
    if ((path == "statistics"_L1 || path.startsWith("statistics/"_L1)) && request.method == "GET")
        return Statistics::answer(m_recorder, user, path.sliced(10), request, std::move(reply));
    if (path == "changes"_L1 && request.method == "GET")
        return getChanges(user, request, std::move(reply));
    if (path == "session"_L1 && request.method == "POST")
        return openSession(user, std::move(reply));
    if (path.startsWith("session/"_L1) && request.method == "DELETE")
        return closeSession(user, path.sliced(8), std::move(reply));
    const bool known =
        path == "spans"_L1 || path == "statistics"_L1 || path == "site"_L1 || path == "changes"_L1 || path == "session"_L1 || path.startsWith("session/"_L1);
    reply.sendJson(known ? 405 : 404, {});
}

void SiteService::reset()
{
    m_sessions.closeAll();
    m_polls.clear();
}

void SiteService::getSite(const User &user, const HttpRequest &request, HttpReply reply)
{
    const QJsonObject group = m_recorder.inGroup
                                  ? QJsonObject{{u"uid"_s, m_site.groupUid}, {u"name"_s, m_site.groupName}}
                                  : QJsonObject();
    const QJsonObject server{{u"uid"_s, QString::number(m_recorder.uid)},
                             {u"id"_s, m_recorder.id},
                             {u"name"_s, m_recorder.name},
                             {u"version"_s, m_recorder.version},
                             {u"timeZone"_s, QString::fromLatin1(m_recorder.timeZone)}};
    const QJsonObject userObject{{u"id"_s, user.id},
                                 {u"name"_s, user.name},
                                 {u"level"_s, levelName(user.level)},
                                 {u"permissions"_s, permissions(user.level)}};
    reply.sendJson(200, {{u"version"_s, 1},
                         {u"group"_s, group},
                         {u"server"_s, server},
                         {u"peers"_s, peers(request)},
                         {u"user"_s, userObject},
                         {u"cameras"_s, cameras(user)}});
}

QJsonArray SiteService::peers(const HttpRequest &request) const
{
    static const QRegularExpression portAtEnd(u":[0-9]+$"_s);
    QString host = QString::fromLatin1(request.host);
    host.remove(portAtEnd);
    host.remove(u'[');
    host.remove(u']');
    QJsonArray array;
    for (const RecorderInfo &peer : m_site.recorders) {
        if (peer.id == m_recorder.id || !peer.inGroup || !m_recorder.inGroup)
            continue;
        array.append(QJsonObject{{u"uid"_s, QString::number(peer.uid)},
                                 {u"id"_s, peer.id},
                                 {u"name"_s, peer.name},
                                 {u"host"_s, host},
                                 {u"port"_s, m_portOf(peer.id)}});
    }
    return array;
}

QJsonArray SiteService::cameras(const User &user) const
{
    QJsonArray array;
    for (const Camera &camera : m_recorder.cameras) {
        QJsonArray tracks;
        for (const Track &track : camera.tracks)
            tracks.append(QJsonObject{{u"id"_s, track.id},
                                      {u"name"_s, track.name},
                                      {u"type"_s, track.type},
                                      {u"enabled"_s, track.enabled},
                                      {u"recordings"_s, recordingTokens(camera, track, user)}});
        array.append(QJsonObject{{u"source"_s, u"VS_%1"_s.arg(camera.id)},
                                 {u"id"_s, camera.id},
                                 {u"sortId"_s, camera.sortId},
                                 {u"name"_s, camera.name},
                                 {u"enabled"_s, camera.enabled},
                                 {u"permitted"_s, camera.permittedFor(user.name)},
                                 {u"ptzf"_s, camera.ptz ? 1 : 0},
                                 {u"tracks"_s, tracks}});
    }
    return array;
}

void SiteService::openSession(const User &user, HttpReply reply)
{
    const std::optional<QString> id = m_sessions.open(user.name);
    if (!id)
        return sendRefusal({Refusal::Reason::TooManyConnections}, std::move(reply));
    reply.sendJson(200, {{u"session"_s, *id}, {u"timeoutSeconds"_s, int(Sessions::Timeout.count())}});
}

void SiteService::closeSession(const User &user, const QString &id, HttpReply reply)
{
    const bool closed = m_sessions.close(id, user.name);
    if (closed)
        finishPoll(id);
    reply.sendJson(closed ? 200 : 404, {});
}

void SiteService::getChanges(const User &user, const HttpRequest &request, HttpReply reply)
{
    const QString session = request.query.queryItemValue(u"session"_s);
    bool valid = false;
    const qint64 after = request.query.queryItemValue(u"after"_s).toLongLong(&valid);
    if (!m_sessions.use(session, user.name))
        return reply.sendJson(404, {});
    if (!valid)
        return reply.sendJson(400, {});
    finishPoll(session);
    if (m_changes.revision() > after)
        return answer(std::move(reply), after);
    auto timer = std::make_unique<QTimer>();
    timer->setSingleShot(true);
    timer->setInterval(PollTime);
    connect(timer.get(), &QTimer::timeout, this, [this, session] { finishPoll(session); });
    timer->start();
    m_polls.insert_or_assign(session, Poll{std::move(reply), after, std::move(timer)});
}

void SiteService::answerPolls()
{
    QStringList due;
    for (const auto &[session, poll] : m_polls) {
        if (m_changes.revision() > poll.after)
            due.append(session);
    }
    for (const QString &session : due)
        finishPoll(session);
}

void SiteService::finishPoll(const QString &session)
{
    auto node = m_polls.extract(session);
    if (node.empty())
        return;
    // This may be the timer's own signal.
    node.mapped().timer.release()->deleteLater();
    answer(std::move(node.mapped().reply), node.mapped().after);
}

void SiteService::answer(HttpReply reply, qint64 after)
{
    reply.sendJson(200, {{u"revision"_s, m_changes.revision()},
                         {u"changed"_s, QJsonArray::fromStringList(m_changes.changesAfter(after))},
                         {u"notices"_s, QJsonArray::fromStringList(m_changes.noticesAfter(after))}});
}

} // namespace orrin::demo
