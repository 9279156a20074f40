// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/orrinsdkqmlglobal.h"

#include <QAbstractTableModel>
#include <QtQml/qqmlregistration.h>

#include <memory>

namespace orrin {

class QmlTrackModelPrivate;

/*! The recorded tracks of one channel, of several or of all, one a row, in the core's order. Main thread.

    Rebuilt whole, by a model reset, when servers come, but not when one is reconnected; the objects of tracks that are still
    there survive. Each column is the property of QmlTrack with the role's name; the role of a column is Qt::UserRole plus its
    number. */
class ORRINSDKQML_EXPORT QmlTrackModel : public QAbstractTableModel
{
    Q_OBJECT
    QML_NAMED_ELEMENT(TrackModel)

    // Each of the three ids narrows the list on its own; below 0 it does not.
    Q_PROPERTY(int serverGroupId READ serverGroupId WRITE setServerGroupId NOTIFY serverGroupIdChanged FINAL)
    Q_PROPERTY(int serverId READ serverId WRITE setServerId NOTIFY serverIdChanged FINAL)
    Q_PROPERTY(int channelId READ channelId WRITE setChannelId NOTIFY channelIdChanged FINAL)
    /*! The number of rows. countChanged() is never emitted: follow the model's reset. */
    Q_PROPERTY(int count READ count NOTIFY countChanged FINAL)

public:
    explicit QmlTrackModel(QObject *parent = nullptr);
    /*! The items that are listed stay alive and belong to nobody. */
    ~QmlTrackModel() override;

    int serverGroupId() const;
    void setServerGroupId(int id);
    int serverId() const;
    void setServerId(int id);
    int channelId() const;
    void setChannelId(int id);
    int count() const;

    /*! The QmlTrack* of that row, or an invalid value. The model owns it: do not hold it beyond a reset. */
    Q_INVOKABLE QVariant get(int index) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void serverGroupIdChanged();
    void serverIdChanged();
    void channelIdChanged();
    void countChanged();

private:
    Q_DISABLE_COPY_MOVE(QmlTrackModel)

    QmlTrackModelPrivate *d_func() const { return d_ptr.get(); }
    template <class, class, std::size_t>
    friend class ResourceModelPrivate;

    std::unique_ptr<QmlTrackModelPrivate> d_ptr;
};

} // namespace orrin
