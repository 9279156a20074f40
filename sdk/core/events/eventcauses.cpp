// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/events/eventcauses.h"

namespace orrin {

void EventCauses::note(quint64 serverUid, const QString &cause)
{
    if (m_causes.size() >= ServerLimit && !m_causes.contains(serverUid))
        return;
    QStringList &known = m_causes[serverUid];
    if (known.size() < Limit && !known.contains(cause))
        known.append(cause);
}

void EventCauses::note(quint64 serverUid, const QStringList &causes)
{
    for (const QString &cause : causes)
        note(serverUid, cause);
    Q_EMIT told(serverUid);
}

} // namespace orrin
