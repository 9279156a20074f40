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
