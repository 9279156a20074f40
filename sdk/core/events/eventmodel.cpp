// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/eventmodel.h>

#include "core/events/eventmodel_p.h"

#include <contract/core/eventspreferences.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/preferences.h>

#include <QTimeZone>

#include <algorithm>

namespace orrin {

int EventModelPrivate::maximumRows() const
{
    constexpr int Default = 500;
    const OrrinSDK *sdk = OrrinSDK::instance();
    const auto group = sdk ? sdk->preferences()->preferenceGroup(EventsPreferences::NAME) : nullptr;
    const auto item = group ? group->item(EventsPreferences::MAXIMUM_ROWS, QString()) : nullptr;
    bool ok = false;
    const int rows = item ? item->value().toInt(&ok) : Default;
    return std::clamp(ok ? rows : Default, 1, HardLimit);
}

void EventModelPrivate::append(const QList<EventRecord> &batch)
{
    const int limit = maximumRows();
    const qsizetype kept = std::min<qsizetype>(batch.size(), limit);
    if (kept == 0)
        return;
    shrinkTo(limit - static_cast<int>(kept));
    if (m_counts.size() > EventCauses::ServerLimit)
        m_counts.clear();
    for (const EventRecord &record : batch)
        causes.note(record.serverUid, record.baseCause.isEmpty() ? record.cause : record.baseCause);
    // What would leave at once does not come, but counts.
    m_lastId += static_cast<quint64>(batch.size() - kept);
    for (const EventRecord &record : batch.first(batch.size() - kept))
        ++m_counts[record.serverUid];
    q->beginInsertRows(QModelIndex(), 0, static_cast<int>(kept) - 1);
    for (EventRecord record : batch.last(kept)) {
        record.id = ++m_lastId;
        record.instanceNumber = ++m_counts[record.serverUid];
        records.push_front(std::move(record));
    }
    q->endInsertRows();
}

void EventModelPrivate::shrinkTo(int rows)
{
    const int count = static_cast<int>(records.size());
    if (count <= rows)
        return;
    q->beginRemoveRows(QModelIndex(), rows, count - 1);
    records.resize(static_cast<std::size_t>(rows));
    q->endRemoveRows();
}

namespace {

int stateCode(EventDescription::State state)
{
    switch (state) {
    case EventDescription::State::Began:
        return 1;
    case EventDescription::State::Ended:
        return 0;
    case EventDescription::State::Momentary:
        break;
    }
    return -1;
}

QString stateString(EventDescription::State state)
{
    switch (state) {
    case EventDescription::State::Began:
        return QStringLiteral("began");
    case EventDescription::State::Ended:
        return QStringLiteral("ended");
    case EventDescription::State::Momentary:
        break;
    }
    return {};
}

/*! What only the details of a row show. */
QVariant detail(const EventRecord &record, int role)
{
    switch (role) {
    case EventModel::IdRole:
        return record.id;
    case EventModel::SourceIdRole:
        return record.sourceId;
    case EventModel::TextRole:
        return record.text;
    case EventModel::StateCodeRole:
        return stateCode(record.state);
    case EventModel::StateStringRole:
        return stateString(record.state);
    case EventModel::TimeCodeRole:
        return record.time.toMSecsSinceEpoch();
    case EventModel::TimeZoneOffsetRole:
        return record.time.offsetFromUtc();
    case EventModel::TimeZoneNameRole:
        return QString::fromUtf8(record.time.timeZone().id());
    case EventModel::ServerUniqueIdRole:
        return QString::number(record.serverUid);
    case EventModel::InstanceNumberRole:
        return record.instanceNumber;
    case EventModel::SortIdRole:
        return record.sortId;
    default:
        return {};
    }
}

} // namespace

EventModel::EventModel(QObject *parent)
    : QAbstractListModel(parent), d(std::make_unique<EventModelPrivate>(this))
{
}

EventModel::~EventModel() = default;

int EventModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(d->records.size());
}

QVariant EventModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const EventRecord &record = d->records[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole:
    case CauseStringRole:
        return record.cause;
    case ServerNameRole:
        return record.serverName;
    case SourceNameRole:
        return record.sourceName;
    case TimeStringRole:
        return record.time.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    case CauseColorRole:
        return record.causeColor;
    case TimeRole:
        return record.time.toUTC();
    case ServerUidRole:
        return record.serverUid;
    case ChannelIdRole:
        return record.channelId;
    default:
        return detail(record, role);
    }
}

QHash<int, QByteArray> EventModel::roleNames() const
{
    QHash<int, QByteArray> names = QAbstractListModel::roleNames();
    names.insert({{CauseStringRole, QByteArrayLiteral("causeString")},
                  {ServerNameRole, QByteArrayLiteral("serverName")},
                  {SourceNameRole, QByteArrayLiteral("sourceName")},
                  {TimeStringRole, QByteArrayLiteral("timeString")},
                  {CauseColorRole, QByteArrayLiteral("causeColor")},
                  {TimeRole, QByteArrayLiteral("time")},
                  {ServerUidRole, QByteArrayLiteral("serverUid")},
                  {ChannelIdRole, QByteArrayLiteral("channelId")},
                  {IdRole, QByteArrayLiteral("id")},
                  {SourceIdRole, QByteArrayLiteral("sourceId")},
                  {TextRole, QByteArrayLiteral("text")},
                  {StateCodeRole, QByteArrayLiteral("stateCode")},
                  {StateStringRole, QByteArrayLiteral("stateString")},
                  {TimeCodeRole, QByteArrayLiteral("timeCode")},
                  {TimeZoneOffsetRole, QByteArrayLiteral("timeZoneOffset")},
                  {TimeZoneNameRole, QByteArrayLiteral("timeZoneName")},
                  {ServerUniqueIdRole, QByteArrayLiteral("serverUniqueId")},
                  {InstanceNumberRole, QByteArrayLiteral("instanceNumber")},
                  {SortIdRole, QByteArrayLiteral("sortId")}});
    return names;
}

} // namespace orrin
