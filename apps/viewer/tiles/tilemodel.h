// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <support/qmlvideooutputproxymodel.h>

#include <QAbstractListModel>
#include <QPointer>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

/*! The tiles of the grid, for a view: a VideoOutputProxyModel under the viewer's own rules. Main thread.

    - A tile that nobody assigned takes the next camera that no other tile shows, and stays empty when there is none.
    - A tile belongs to its camera and not to a row: when the list of cameras changes, the rows are looked up again. A camera that is
      gone keeps its tile.
    - Rows come and go one by one instead of by a reset, so that tiles that stay keep their streams. */
class TileModel : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT

    /*! The list of cameras, with the roles of the module's ChannelModel; followed, not owned. */
    Q_PROPERTY(QAbstractItemModel *cameras READ cameras WRITE setCameras NOTIFY camerasChanged FINAL)
    /*! The number of tiles, 1 to MaxTiles; other numbers are brought into that range. */
    Q_PROPERTY(int count READ count WRITE setCount NOTIFY countChanged FINAL)
    /*! How many of them have a camera. */
    Q_PROPERTY(int assigned READ assigned NOTIFY assignedChanged FINAL)
    /*! The selected tile. Others than those of tiles are ignored. */
    Q_PROPERTY(int current READ current WRITE setCurrent NOTIFY currentChanged FINAL)
    /*! The address of the selected tile's camera, -1 without one. */
    Q_PROPERTY(int currentServerGroupId READ currentServerGroupId NOTIFY currentCameraChanged FINAL)
    Q_PROPERTY(int currentServerId READ currentServerId NOTIFY currentCameraChanged FINAL)
    Q_PROPERTY(int currentChannelId READ currentChannelId NOTIFY currentCameraChanged FINAL)
    /*! The cameras of the tiles by their names across sessions; empty for an empty tile. Setting it sets `count`; cameras that are not
        there take their tiles when they come. */
    Q_PROPERTY(QStringList cameraKeys READ cameraKeys WRITE setCameraKeys NOTIFY cameraKeysChanged FINAL)

public:
    static constexpr int MaxTiles = 64;

    enum Role { ServerGroupIdRole = Qt::UserRole, ServerIdRole, ChannelIdRole, NameRole, CameraKeyRole, AvailableRole };

    explicit TileModel(QObject *parent = nullptr);
    ~TileModel() override;

    QAbstractItemModel *cameras() const { return m_cameras; }
    void setCameras(QAbstractItemModel *cameras);
    int count() const { return int(m_tiles.size()); }
    void setCount(int count);
    int assigned() const;
    int current() const { return m_current; }
    void setCurrent(int tile);
    int currentServerGroupId() const;
    int currentServerId() const;
    int currentChannelId() const;
    QStringList cameraKeys() const;
    void setCameraKeys(const QStringList &keys);

    /*! Lets \a tile show the camera; calls that name none do nothing. */
    Q_INVOKABLE void assign(int tile, int serverGroupId, int serverId, int channelId);
    Q_INVOKABLE void clear(int tile);
    Q_INVOKABLE void swap(int tile, int other);
    /*! One camera on or back in the list, round at its ends; other tiles are not looked at. */
    Q_INVOKABLE void nextChannel(int tile);
    Q_INVOKABLE void previousChannel(int tile);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void camerasChanged();
    void countChanged();
    void assignedChanged();
    void currentChanged();
    void currentCameraChanged();
    void cameraKeysChanged();

private:
    struct Tile
    {
        QString key; //!< empty for none
        QString name;
        int serverGroupId = -1;
        int serverId = -1;
        int channelId = -1;
        bool cleared = false; //!< stays empty until assigned
        bool operator==(const Tile &) const = default;
    };

    bool isTile(int tile) const { return tile >= 0 && tile < count(); }
    int rowOf(const QString &key) const;
    int freeRow() const;
    QVariant camera(int row, const QByteArray &role) const;
    void listCameras();
    void show(int tile, int row);
    void showKey(int tile, const QString &key);
    void put(int tile, const Tile &next);
    void resizeTiles(int count, const QStringList &keys = {});
    void followCameras();
    void announce();

    orrin::QmlVideoOutputProxyModel m_outputs;
    QPointer<QAbstractItemModel> m_cameras;
    QHash<QByteArray, int> m_roles; //!< of the cameras
    QStringList m_rowKeys;          //!< the cameras' keys by row
    QHash<QString, int> m_rows;     //!< and the other way round
    QList<Tile> m_tiles;
    int m_current = 0;
    int m_assigned = 0;
    bool m_inserting = false;
};
