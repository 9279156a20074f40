// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/session.h"
#include "core/stats/statspage.h"

#include <contract/core/export.h>

#include <QObject>
#include <QPointer>
#include <QTimer>

#include <chrono>
#include <optional>

namespace orrin {

/*! Reads a server's statistics through its session: what there is, then a span page by page, then, for a running span, what is new. Main thread.

    One request at a time. A failure is told and tried again after 2 s, doubled up to a minute; a server that keeps no statistics, or not for this user, is
    not asked again. A lost session is waited for. */
class ORRINSDK_CORE_EXPORT StatsLoader : public QObject
{
    Q_OBJECT
public:
    explicit StatsLoader(QObject *parent = nullptr);

    /*! Begins with another session, which may be null: forgets what was asked. contentsKnown() follows, or failed(). */
    void setSession(Session *session);
    bool hasSession() const;

    /*! Reads this span, once the contents are known; replaces what is under way. */
    void load(const StatsQuery &query);
    /*! Nothing is under way and nothing is left to read. */
    bool isIdle() const { return m_contents && !m_query && !m_busy; }
    /*! Tries again at once after a failure. */
    void retryNow();

Q_SIGNALS:
    void contentsKnown(const orrin::StatsContents &contents);
    void pageRead(const orrin::StatsPage &page);
    /*! All pages of a span were read. */
    void loaded();
    void failed(orrin::StatsError error);

private:
    void askNext();
    void askForContents();
    void askForPage();
    void onPage(const StatsPage &page);
    void onError(StatsError error);

    QPointer<Session> m_session;
    std::optional<StatsContents> m_contents;
    std::optional<StatsQuery> m_query; // what is left of it
    int m_pages = 0;
    quint64 m_number = 0; // of the newest request: answers to older ones are dropped
    bool m_busy = false;
    bool m_refused = false;
    std::chrono::seconds m_pause;
    QTimer m_retry;
};

} // namespace orrin
