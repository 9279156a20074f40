// SPDX-License-Identifier: GPL-3.0-or-later
#include "tiles/tilemodel.h"

#include <QSet>

#include <algorithm>
#include <utility>

namespace {

// No row of the source: the tile's ids are then those of no camera.
constexpr int NoRow = -1;

} // namespace

TileModel::TileModel(QObject *parent) : QAbstractListModel(parent)
{
    m_outputs.resize(1);
    m_tiles.resize(1);
}

TileModel::~TileModel() = default;

void TileModel::setCameras(QAbstractItemModel *cameras)
{
    if (m_cameras == cameras)
        return;
    if (m_cameras)
        m_cameras->disconnect(this);
    m_cameras = cameras;
    m_roles.clear();
    if (cameras) {
        const QHash<int, QByteArray> names = cameras->roleNames();
        for (auto name = names.cbegin(); name != names.cend(); ++name)
            m_roles.insert(name.value(), name.key());
        connect(cameras, &QAbstractItemModel::modelReset, this, &TileModel::followCameras);
        connect(cameras, &QAbstractItemModel::layoutChanged, this, &TileModel::followCameras);
        connect(cameras, &QAbstractItemModel::rowsInserted, this, &TileModel::followCameras);
        connect(cameras, &QAbstractItemModel::rowsRemoved, this, &TileModel::followCameras);
        connect(cameras, &QAbstractItemModel::rowsMoved, this, &TileModel::followCameras);
        connect(cameras, &QAbstractItemModel::dataChanged, this, &TileModel::followCameras);
        connect(cameras, &QObject::destroyed, this, &TileModel::listCameras);
        m_outputs.setModel(QVariant::fromValue(cameras));
    }
    Q_EMIT camerasChanged();
    followCameras();
}

void TileModel::setCount(int count)
{
    count = std::clamp(count, 1, MaxTiles);
    if (count == this->count())
        return;
    resizeTiles(count);
    followCameras();
    Q_EMIT cameraKeysChanged();
}

void TileModel::resizeTiles(int count, const QStringList &keys)
{
    const int before = this->count();
    if (count > before) {
        m_outputs.resize(count);
        beginInsertRows({}, before, count - 1);
        m_inserting = true;
        m_tiles.resize(count);
        // Filled before a view sees them, so that no stream is opened for nothing.
        for (int tile = before; tile < count; ++tile) {
            if (tile < keys.size())
                showKey(tile, keys.at(tile));
            else
                show(tile, freeRow());
        }
        m_inserting = false;
        endInsertRows();
    } else if (count < before) {
        beginRemoveRows({}, count, before - 1);
        m_tiles.resize(count);
        endRemoveRows();
        m_outputs.resize(count);
    }
    if (count != before)
        Q_EMIT countChanged();
    setCurrent(std::min(m_current, count - 1));
    // A new size makes the first output the current one.
    m_outputs.setCurrentOutputIndex(m_current);
}

int TileModel::assigned() const
{
    return int(std::ranges::count_if(m_tiles, [](const Tile &tile) { return !tile.key.isEmpty(); }));
}

void TileModel::setCurrent(int tile)
{
    if (tile == m_current || !isTile(tile))
        return;
    m_current = tile;
    m_outputs.setCurrentOutputIndex(tile);
    Q_EMIT currentChanged();
    Q_EMIT currentCameraChanged();
}

int TileModel::currentServerGroupId() const
{
    return m_tiles.at(m_current).serverGroupId;
}

int TileModel::currentServerId() const
{
    return m_tiles.at(m_current).serverId;
}

int TileModel::currentChannelId() const
{
    return m_tiles.at(m_current).channelId;
}

QStringList TileModel::cameraKeys() const
{
    QStringList keys;
    for (const Tile &tile : m_tiles)
        keys.append(tile.key);
    return keys;
}

void TileModel::setCameraKeys(const QStringList &keys)
{
    if (keys.isEmpty() || keys == cameraKeys())
        return;
    const int wanted = std::min(int(keys.size()), MaxTiles);
    for (int tile = 0; tile < std::min(wanted, count()); ++tile)
        showKey(tile, keys.at(tile));
    resizeTiles(wanted, keys);
    followCameras();
    Q_EMIT cameraKeysChanged();
}

void TileModel::assign(int tile, int serverGroupId, int serverId, int channelId)
{
    if (!isTile(tile) || !m_cameras)
        return;
    for (int row = 0; row < m_cameras->rowCount(); ++row) {
        if (camera(row, "serverGroupId").toInt() != serverGroupId || camera(row, "serverId").toInt() != serverId
            || camera(row, "channelId").toInt() != channelId)
            continue;
        show(tile, row);
        announce();
        Q_EMIT cameraKeysChanged();
        return;
    }
}

void TileModel::clear(int tile)
{
    if (!isTile(tile))
        return;
    showKey(tile, {});
    announce();
    Q_EMIT cameraKeysChanged();
}

void TileModel::swap(int tile, int other)
{
    if (!isTile(tile) || !isTile(other) || tile == other)
        return;
    std::swap(m_tiles[tile], m_tiles[other]);
    for (const int each : {tile, other}) {
        m_outputs.setChannel(rowOf(m_tiles.at(each).key), each);
        Q_EMIT dataChanged(index(each), index(each));
    }
    announce();
    Q_EMIT currentCameraChanged();
    Q_EMIT cameraKeysChanged();
}

void TileModel::nextChannel(int tile)
{
    if (!isTile(tile) || !m_cameras || m_cameras->rowCount() == 0)
        return;
    m_outputs.nextChannel(tile);
    show(tile, m_outputs.index(tile, 0).data().toInt());
    announce();
    Q_EMIT cameraKeysChanged();
}

void TileModel::previousChannel(int tile)
{
    if (!isTile(tile) || !m_cameras || m_cameras->rowCount() == 0)
        return;
    m_outputs.previousChannel(tile);
    show(tile, m_outputs.index(tile, 0).data().toInt());
    announce();
    Q_EMIT cameraKeysChanged();
}

int TileModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : count();
}

QVariant TileModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || !isTile(index.row()))
        return {};
    const Tile &tile = m_tiles.at(index.row());
    switch (role) {
    case ServerGroupIdRole: return tile.serverGroupId;
    case ServerIdRole: return tile.serverId;
    case ChannelIdRole: return tile.channelId;
    case NameRole: return tile.name;
    case CameraKeyRole: return tile.key;
    case AvailableRole: return tile.key.isEmpty() || tile.channelId > 0;
    default: return {};
    }
}

QHash<int, QByteArray> TileModel::roleNames() const
{
    return {{ServerGroupIdRole, "serverGroupId"}, {ServerIdRole, "serverId"},   {ChannelIdRole, "channelId"},
            {NameRole, "name"},                   {CameraKeyRole, "cameraKey"}, {AvailableRole, "available"}};
}

int TileModel::rowOf(const QString &key) const
{
    return m_rows.value(key, NoRow);
}

int TileModel::freeRow() const
{
    QSet<QString> shown;
    for (const Tile &tile : m_tiles)
        shown.insert(tile.key);
    const auto free = std::ranges::find_if(m_rowKeys, [&shown](const QString &key) { return !shown.contains(key); });
    return free == m_rowKeys.cend() ? NoRow : int(free - m_rowKeys.cbegin());
}

QVariant TileModel::camera(int row, const QByteArray &role) const
{
    const int number = m_roles.value(role, -1);
    // The column comes with the role; the first one's index does for all.
    return number < 0 ? QVariant() : m_cameras->index(row, number - Qt::UserRole).data(number);
}

// Asked once for each change of the list: there may be thousands.
void TileModel::listCameras()
{
    m_rowKeys.clear();
    m_rows.clear();
    const int rows = m_cameras ? m_cameras->rowCount() : 0;
    for (int row = 0; row < rows; ++row) {
        m_rowKeys.append(camera(row, "channelUniqueIdMeta").toString());
        m_rows.insert(m_rowKeys.constLast(), row);
    }
}

// The camera of that row, or none.
void TileModel::show(int tile, int row)
{
    m_outputs.setChannel(row, tile);
    Tile next;
    if (row != NoRow) {
        const auto field = [this, tile](int column) { return m_outputs.index(tile, column).data().toInt(); };
        next.serverGroupId = field(1);
        next.serverId = field(2);
        next.channelId = field(3);
        next.name = camera(row, "name").toString();
        next.key = camera(row, "channelUniqueIdMeta").toString();
    }
    put(tile, next);
}

// That camera, which may have yet to come, or none on purpose.
void TileModel::showKey(int tile, const QString &key)
{
    if (const int row = rowOf(key); row != NoRow) {
        show(tile, row);
        return;
    }
    m_outputs.setChannel(NoRow, tile);
    Tile next;
    next.key = key;
    next.cleared = key.isEmpty();
    put(tile, next);
}

void TileModel::put(int tile, const Tile &next)
{
    if (next == m_tiles.at(tile))
        return;
    m_tiles[tile] = next;
    // Views do not know of tiles that are being inserted.
    if (!m_inserting)
        Q_EMIT dataChanged(index(tile), index(tile));
    if (tile == m_current)
        Q_EMIT currentCameraChanged();
}

void TileModel::followCameras()
{
    listCameras();
    const QStringList before = cameraKeys();
    for (int tile = 0; tile < count(); ++tile) {
        const Tile &each = m_tiles.at(tile);
        if (each.key.isEmpty()) {
            if (!each.cleared)
                show(tile, freeRow());
        } else if (const int row = rowOf(each.key); row != NoRow) {
            show(tile, row);
        }
    }
    announce();
    if (before != cameraKeys())
        Q_EMIT cameraKeysChanged();
}

void TileModel::announce()
{
    if (std::exchange(m_assigned, assigned()) != m_assigned)
        Q_EMIT assignedChanged();
}
