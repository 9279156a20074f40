// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/orrinsdkqmlglobal.h"

#include <QAbstractTableModel>
#include <QVariant>
#include <QtQml/qqmlregistration.h>

#include <memory>

namespace orrin {

class QmlVideoOutputProxyModelPrivate;

/*! Which channel each tile of a video grid shows: one row a tile, one column a number. Main thread.

    A tile holds the row of the source that it shows and the ids copied from there when it was assigned. The source is not followed: a
    later change of it reaches a tile at that tile's next assignment. The source has the server group id, the server id and the channel
    id in the columns 0, 1 and 3, and the channel's unique id under role 261, as QmlChannelModel has, directly or through a proxy.

    A tile can be zoomed: cacheModel() puts the grid aside and leaves that tile alone, restoreModelCache() brings the grid back. Neither
    announces the change of the number of rows, which a view learns from `size`.

    Calls that make no sense do nothing: next and previous channel without a source or a tile, cacheModel() of a tile that is not there, a
    unique id that the source does not have. */
class ORRINSDKQML_EXPORT QmlVideoOutputProxyModel : public QAbstractTableModel
{
    Q_OBJECT
    QML_NAMED_ELEMENT(VideoOutputProxyModel)

    /*! The source. Reads as a QPointer<QAbstractItemModel>. What is no item model and the present source are ignored: a source cannot
        be cleared. A new one fills the tiles that are not assigned and leaves the others alone. */
    Q_PROPERTY(QVariant model READ model WRITE setModel NOTIFY modelChanged FINAL)
    /*! The number of tiles. Below 1 is ignored. Setting it makes tile 0 the current one. */
    Q_PROPERTY(int size READ size WRITE resize NOTIFY sizeChanged FINAL)
    /*! The tile that has the focus, -1 before there is one; others than those of tiles are ignored. */
    Q_PROPERTY(int currentOutputIndex READ currentOutputIndex WRITE setCurrentOutputIndex NOTIFY
                   currentOutputIndexChanged FINAL)
    /*! The ids of the current tile, -1 without one. */
    Q_PROPERTY(int currentServerGroupId READ currentServerGroupId NOTIFY currentServerGroupIdChanged FINAL)
    Q_PROPERTY(int currentServerId READ currentServerId NOTIFY currentServerIdChanged FINAL)
    Q_PROPERTY(int currentChannelId READ currentChannelId NOTIFY currentChannelIdChanged FINAL)
    Q_PROPERTY(int currentTrackId READ currentTrackId NOTIFY currentTrackIdChanged FINAL)

public:
    explicit QmlVideoOutputProxyModel(QObject *parent = nullptr);
    ~QmlVideoOutputProxyModel() override;

    QVariant model() const;
    void setModel(const QVariant &model);
    int size() const;
    void resize(int count);
    int currentOutputIndex() const;
    void setCurrentOutputIndex(int index);
    int currentServerGroupId() const;
    int currentServerId() const;
    int currentChannelId() const;
    int currentTrackId() const;

    /*! Lets tile \a index show row \a channelIndex of the source, whether the source has that row or not. Where \a index is no tile, the
        current one is meant. */
    Q_INVOKABLE void setChannel(int channelIndex = 0, int index = -1);
    /*! Lets tile \a index show the first row whose unique id, as text, begins with \a channel_uid. Without a source the current tile
        takes row 0. */
    Q_INVOKABLE void setChannelFromChannelUid(int channel_uid, int index = -1);
    /*! One row down or up in the source, and round at its ends. */
    Q_INVOKABLE void nextChannel(int index = -1);
    Q_INVOKABLE void previousChannel(int index = -1);
    /*! Leaves tile \a index alone in the table; there is no default that would do. */
    Q_INVOKABLE void cacheModel(int index = -1);
    /*! Brings back what cacheModel() put aside, ids read anew. With nothing put aside the table is empty after it. */
    Q_INVOKABLE void restoreModelCache();

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    /*! Only the first column can be written: setChannel() for that tile. */
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void modelChanged();
    void sizeChanged();
    void currentOutputIndexChanged();
    void currentServerGroupIdChanged();
    void currentServerIdChanged();
    void currentChannelIdChanged();
    void currentTrackIdChanged();

private:
    Q_DISABLE_COPY_MOVE(QmlVideoOutputProxyModel)

    QmlVideoOutputProxyModelPrivate *d_func() const { return d_ptr.get(); }
    void emitCurrentIds();
    void updateVideoOutputData();

    std::unique_ptr<QmlVideoOutputProxyModelPrivate> d_ptr;
};

} // namespace orrin
