// SPDX-License-Identifier: GPL-3.0-or-later
// The statistics of an OnvifSession: those that the site extension tells.
#include "core/session/onvif/onvifsession.h"
#include "core/session/onvif/statisticsreader.h"

#include <QPointer>

namespace orrin {

using namespace Qt::StringLiterals;

namespace {

// A page of a year takes a recorder some time.
constexpr std::chrono::seconds StatsTimeout{10};

StatsError errorOf(const SiteAnswer &answer)
{
    if (answer.transport.failure != TransportResult::Failure::None)
        return StatsError::Failed;
    switch (answer.transport.status) {
    case 404:
    case 405:
    case 501:
        return StatsError::Unsupported;
    case 401:
    case 403:
        return StatsError::NotPermitted;
    default:
        return StatsError::Failed;
    }
}

} // namespace

void OnvifSession::askForStats(const QString &path, QObject *context, std::function<void(const QJsonObject &)> answered,
                               std::function<void(StatsError)> refused)
{
    const bool isOnline = m_state == State::Online && m_link;
    if (!isOnline || !m_link->hasExtension()) {
        const StatsError error = isOnline ? StatsError::Unsupported : StatsError::Disconnected;
        QMetaObject::invokeMethod(
            context ? context : this, [refused = std::move(refused), error] { refused(error); }, Qt::QueuedConnection);
        return;
    }
    m_link->site->get(path, StatsTimeout,
                      [guard = QPointer<QObject>(context ? context : this), answered = std::move(answered),
                       refused = std::move(refused)](const SiteAnswer &answer) {
                          if (!guard)
                              return;
                          if (answer.isAnswer())
                              answered(*answer.object);
                          else
                              refused(errorOf(answer));
                      });
}

void OnvifSession::requestStatsContents(QObject *context, StatsContentsCallback callback)
{
    askForStats(
        u"statistics/headings"_s, context,
        [callback](const QJsonObject &object) { callback(StatisticsReader::readContents(object)); },
        [callback](StatsError error) { callback(error); });
}

void OnvifSession::requestStats(const StatsQuery &query, QObject *context, StatsCallback callback)
{
    const QString path = u"statistics?from=%1&to=%2&step=%3"_s.arg(query.fromMs).arg(query.toMs).arg(query.stepMs / 1000);
    askForStats(
        path, context, [callback](const QJsonObject &object) { callback(StatisticsReader::readPage(object)); },
        [callback](StatsError error) { callback(error); });
}

} // namespace orrin
