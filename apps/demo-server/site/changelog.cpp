// SPDX-License-Identifier: GPL-3.0-or-later
#include "site/changelog.h"

namespace orrin::demo {

namespace {
constexpr int MaximumNotices = 64;
}

void ChangeLog::addChange(const QString &topic)
{
    m_topics[topic] = ++m_revision;
    Q_EMIT advanced();
}

void ChangeLog::addNotice(const QString &notice)
{
    m_notices.append({++m_revision, notice});
    if (m_notices.size() > MaximumNotices)
        m_notices.removeFirst();
    Q_EMIT advanced();
}

QStringList ChangeLog::changesAfter(qint64 revision) const
{
    QStringList topics;
    for (auto it = m_topics.cbegin(); it != m_topics.cend(); ++it) {
        if (it.value() > revision)
            topics.append(it.key());
    }
    topics.sort();
    return topics;
}

QStringList ChangeLog::noticesAfter(qint64 revision) const
{
    QStringList names;
    for (const Notice &notice : m_notices) {
        if (notice.revision > revision)
            names.append(notice.name);
    }
    return names;
}

} // namespace orrin::demo
