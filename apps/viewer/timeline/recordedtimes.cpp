// SPDX-License-Identifier: GPL-3.0-or-later
#include "timeline/recordedtimes.h"

#include <contract/core/connection.h>
#include <contract/core/connectionmanager.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/server.h>

#include <algorithm>

using orrin::RecordedSpan;
using orrin::RecordedSpans;

RecordedTimes::RecordedTimes(QObject *parent) : QObject(parent)
{
    connect(this, &RecordedTimes::addressChanged, this, &RecordedTimes::ask);
}

void RecordedTimes::ask()
{
    orrin::OrrinSDK *sdk = orrin::OrrinSDK::instance();
    orrin::Server *server = sdk && m_channelId > 0 ? sdk->connectionManager()->server(m_serverGroupId, m_serverId) : nullptr;
    orrin::Connection *connection = server ? server->connection() : nullptr;
    setSource(connection ? connection->createRecordedSpans(m_channelId, m_trackId) : nullptr);
}

void RecordedTimes::setSource(const QSharedPointer<RecordedSpans> &source)
{
    if (source == m_source)
        return;
    if (m_source)
        m_source->disconnect(this);
    m_source = source;
    if (m_source)
        connect(m_source.get(), &RecordedSpans::changed, this, &RecordedTimes::changed);
    Q_EMIT changed();
}

bool RecordedTimes::isKnown() const
{
    return m_source && m_source->state() == RecordedSpans::State::Known;
}

qint64 RecordedTimes::beginning() const
{
    return spans().isEmpty() ? 0 : spans().constFirst().fromMs;
}

qint64 RecordedTimes::end() const
{
    return spans().isEmpty() ? 0 : spans().constLast().toMs;
}

const QList<RecordedSpan> &RecordedTimes::spans() const
{
    static const QList<RecordedSpan> none;
    return m_source ? m_source->spans() : none;
}

bool RecordedTimes::isRecorded(qint64 time) const
{
    const QList<RecordedSpan> &known = spans();
    const auto after = std::upper_bound(known.cbegin(), known.cend(), time,
                                        [](qint64 moment, const RecordedSpan &span) { return moment < span.fromMs; });
    return after != known.cbegin() && time < std::prev(after)->toMs;
}
