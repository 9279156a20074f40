// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stats/statsloader.h"

#include "core/session/session.h"

#include <algorithm>

namespace orrin {

using namespace std::chrono_literals;

namespace {

constexpr auto FirstPause = 2s;
constexpr std::chrono::seconds LongestPause = 60s;
// A server that hands out single samples is read to this point of a span, and no further.
constexpr int MaximumPages = 512;

} // namespace

StatsLoader::StatsLoader(QObject *parent)
    : QObject(parent)
    , m_pause(FirstPause)
{
    m_retry.setSingleShot(true);
    connect(&m_retry, &QTimer::timeout, this, &StatsLoader::askNext);
}

void StatsLoader::setSession(Session *session)
{
    if (m_session)
        disconnect(m_session, nullptr, this, nullptr);
    m_session = session;
    m_contents.reset();
    m_query.reset();
    m_busy = false;
    m_refused = false;
    m_pause = FirstPause;
    m_retry.stop();
    ++m_number;
    if (!session)
        return;
    connect(session, &Session::lost, this, [this] { onError(StatsError::Disconnected); });
    connect(session, &Session::restored, this, &StatsLoader::retryNow);
    askNext();
}

bool StatsLoader::hasSession() const
{
    return m_session != nullptr;
}

void StatsLoader::load(const StatsQuery &query)
{
    m_query = query;
    m_pages = 0;
    if (m_contents) {
        m_busy = false;
        ++m_number;
    }
    if (!m_refused && !m_retry.isActive())
        askNext();
}

void StatsLoader::retryNow()
{
    if (m_refused || m_busy)
        return;
    m_retry.stop();
    m_pause = FirstPause;
    askNext();
}

void StatsLoader::askNext()
{
    if (!m_session || m_busy || m_refused)
        return;
    if (!m_contents)
        askForContents();
    else if (m_query)
        askForPage();
}

void StatsLoader::askForContents()
{
    m_busy = true;
    m_session->requestStatsContents(this, [this, number = ++m_number](const StatsContentsResult &result) {
        if (number != m_number)
            return;
        m_busy = false;
        if (const auto *error = std::get_if<StatsError>(&result)) {
            onError(*error);
            return;
        }
        m_pause = FirstPause;
        m_contents = std::get<StatsContents>(result);
        Q_EMIT contentsKnown(*m_contents);
        askNext();
    });
}

void StatsLoader::askForPage()
{
    m_busy = true;
    m_session->requestStats(*m_query, this, [this, number = ++m_number](const StatsResult &result) {
        if (number != m_number)
            return;
        m_busy = false;
        if (const auto *error = std::get_if<StatsError>(&result)) {
            onError(*error);
            return;
        }
        m_pause = FirstPause;
        onPage(std::get<StatsPage>(result));
    });
}

void StatsLoader::onPage(const StatsPage &page)
{
    // A page that does not lead on would be read for ever.
    const bool goesOn = page.next && *page.next > m_query->fromMs && *page.next <= m_query->toMs && ++m_pages < MaximumPages;
    if (goesOn)
        m_query->fromMs = *page.next;
    else
        m_query.reset();
    const quint64 number = m_number;
    Q_EMIT pageRead(page);
    if (number != m_number)
        return;
    if (goesOn)
        askNext();
    else
        Q_EMIT loaded();
}

void StatsLoader::onError(StatsError error)
{
    m_busy = false;
    ++m_number;
    m_refused = error == StatsError::Unsupported || error == StatsError::NotPermitted;
    if (!m_refused && error != StatsError::Disconnected) {
        m_retry.start(m_pause);
        m_pause = std::min<std::chrono::seconds>(m_pause * 2, LongestPause);
    }
    Q_EMIT failed(error);
}

} // namespace orrin
