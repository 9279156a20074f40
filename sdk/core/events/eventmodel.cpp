// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/eventmodel.h>

#include "core/events/eventmodel_p.h"

#include <contract/core/eventspreferences.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/preferences.h>

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

void EventModelPrivate::append(const EventRecord &record)
{
    q->beginInsertRows(QModelIndex(), 0, 0);
    records.push_front(record);
    q->endInsertRows();
    QStringList &known = causes[record.serverUid];
    if (known.size() < CauseLimit && !known.contains(record.cause))
        known.append(record.cause);
    const int limit = maximumRows();
    const int count = static_cast<int>(records.size());
    if (count <= limit)
        return;
    q->beginRemoveRows(QModelIndex(), limit, count - 1);
    records.resize(static_cast<std::size_t>(limit));
    q->endRemoveRows();
}

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
        return {};
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
                  {ChannelIdRole, QByteArrayLiteral("channelId")}});
    return names;
}

} // namespace orrin
