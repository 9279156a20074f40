// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>

#include <QAbstractListModel>

#include <memory>

namespace orrin {

class EventModelPrivate;

/*! The live events, newest first, bounded. Main thread; kept alive by the EventManager. */
class ORRINSDK_CORE_EXPORT EventModel : public QAbstractListModel
{
    Q_OBJECT
public:
    enum Role : int {
        CauseStringRole = Qt::UserRole, //!< `causeString`: the cause as text
        ServerNameRole,                 //!< `serverName`
        SourceNameRole,                 //!< `sourceName`: the camera or input
        TimeStringRole,                 //!< `timeString`: the time in the server's zone
        CauseColorRole,                 //!< `causeColor`: a QColor
        TimeRole,                       //!< `time`: QDateTime in UTC
        ServerUidRole,                  //!< `serverUid`: 64-bit
        ChannelIdRole,                  //!< `channelId`: int, -1 when the source is no channel
        IdRole,             //!< `id`: unique in the process, ascending
        SourceIdRole,       //!< `sourceId`: what the device calls the source
        TextRole,           //!< `text`: what else the device told
        StateCodeRole,      //!< `stateCode`: 1 it began, 0 it ended, -1 it has no duration
        StateStringRole,    //!< `stateString`: "began", "ended" or empty
        TimeCodeRole,       //!< `timeCode`: milliseconds since 1970 UTC
        TimeZoneOffsetRole, //!< `timeZoneOffset`: of the server's zone at that time, in seconds east of UTC
        TimeZoneNameRole,   //!< `timeZoneName`: IANA name of the server's zone
        ServerUniqueIdRole, //!< `serverUniqueId`: the 64-bit uid as text, for showing
        InstanceNumberRole, //!< `instanceNumber`: counts the events of the server, from 1
        SortIdRole,         //!< `sortId`: the channel's, -1 when the source is no channel
    };

    explicit EventModel(QObject *parent = nullptr);
    ~EventModel() override;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    EventModelPrivate *d_func() const { return d.get(); }

private:
    friend class EventModelPrivate;

    std::unique_ptr<EventModelPrivate> d;
};

} // namespace orrin
