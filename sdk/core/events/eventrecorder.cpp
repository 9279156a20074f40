// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/events/eventrecorder.h"

#include "core/events/eventmodel_p.h"

#include <contract/core/channel.h>
#include <contract/core/eventmanager.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/server.h>

#include <QTimeZone>

namespace orrin::eventrecorder {

namespace {

using State = EventDescription::State;

/*! Readable on dark and on light grounds alike. */
QColor colourOf(const EventDescription &event)
{
    if (event.state == State::Ended)
        return QColor(0x8a, 0x94, 0x9e);
    switch (event.severity) {
    case EventDescription::Severity::Alarm:
        return QColor(0xe5, 0x48, 0x4d);
    case EventDescription::Severity::Warning:
        return QColor(0xe0, 0x8a, 0x1e);
    case EventDescription::Severity::Information:
        break;
    }
    return QColor(0x3b, 0x9e, 0xd8);
}

EventRecord recordOf(const Server &server, const EventDescription &event)
{
    EventRecord record;
    record.cause = event.state == State::Ended ? event.ending : event.cause;
    record.baseCause = event.cause;
    record.causeColor = colourOf(event);
    record.serverName = server.name();
    record.serverUid = server.uniqueId();
    record.channelId = event.channelId;
    record.sourceId = event.source;
    record.sourceName = event.source;
    if (const Channel *channel = event.channelId < 0 ? nullptr : server.channelById(event.channelId)) {
        record.sourceName = channel->name();
        record.sortId = channel->sortId();
    }
    record.text = event.text;
    record.state = event.state;
    const QDateTime time = event.time.isValid() ? event.time : QDateTime::currentDateTimeUtc();
    record.time = time.toTimeZone(server.timeZone());
    return record;
}

EventModelPrivate *model()
{
    const OrrinSDK *sdk = OrrinSDK::instance();
    return sdk ? sdk->eventManager()->liveEvents()->d_func() : nullptr;
}

} // namespace

void record(const Server &server, const QList<EventDescription> &events)
{
    EventModelPrivate *live = model();
    if (!live || events.isEmpty())
        return;
    QList<EventRecord> records;
    records.reserve(events.size());
    for (const EventDescription &event : events)
        records.append(recordOf(server, event));
    live->append(records);
}

void noteCauses(quint64 serverUid, const QStringList &causes)
{
    if (EventModelPrivate *live = model())
        live->noteCauses(serverUid, causes);
}

} // namespace orrin::eventrecorder
