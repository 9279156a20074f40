// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/qmlvideooutputproxymodel.h"

#include "support/qmlvideooutputproxymodel_p.h"

#include <QJSValue>

#include <array>
#include <limits>
#include <optional>

namespace orrin {

namespace {

struct Column
{
    const char *role;
    const char *heading;
    int VideoOutputData::*field;
};

constexpr std::array<Column, 5> columns = {{
    {"modelIndex", "Model Index", &VideoOutputData::modelIndex},
    {"serverGroupId", "Server Group Id", &VideoOutputData::serverGroupId},
    {"serverId", "Server Id", &VideoOutputData::serverId},
    {"channelId", "Channel Id", &VideoOutputData::channelId},
    {"trackId", "Track Id", &VideoOutputData::trackId},
}};
constexpr int ModelIndexColumn = 0;
constexpr int LastColumn = int(columns.size()) - 1;

// Columns and role of the source.
constexpr int SourceServerGroupIdColumn = 0;
constexpr int SourceServerIdColumn = 1;
constexpr int SourceChannelIdColumn = 3;
constexpr int SourceChannelUidRole = Qt::UserRole + 5;

constexpr int TrackId = 1;

bool isColumn(int column)
{
    return column >= 0 && column <= LastColumn;
}

/*! The column that a role asks for: \a column for \a ownRole, the role's own from Qt::UserRole on, else none. */
std::optional<int> columnFor(int column, int role, int ownRole)
{
    if (role == ownRole)
        return column;
    if (role >= Qt::UserRole)
        return role - Qt::UserRole;
    return std::nullopt;
}

QString invalidColumn(int column)
{
    return QStringLiteral("Invalid column: %1").arg(column);
}

QAbstractItemModel *modelOf(const QVariant &value)
{
    // A value from QML may still be a JavaScript one.
    const QVariant plain = value.metaType() == QMetaType::fromType<QJSValue>() ? value.value<QJSValue>().toVariant() : value;
    if (auto *model = plain.value<QAbstractItemModel *>())
        return model;
    // What the property itself reads as.
    return qobject_cast<QAbstractItemModel *>(plain.value<QObject *>());
}

} // namespace

int QmlVideoOutputProxyModelPrivate::currentField(int VideoOutputData::*field) const
{
    return isTile(currentOutputIndex) ? outputs.at(currentOutputIndex).*field : -1;
}

VideoOutputData QmlVideoOutputProxyModelPrivate::rowData(int row) const
{
    VideoOutputData tile;
    tile.modelIndex = row;
    tile.trackId = TrackId;
    if (!model)
        return tile;
    // Past the end of the source the indexes are invalid, and what they hold converts to 0.
    const auto number = [this, row](int column) { return model ? model->index(row, column).data(Qt::DisplayRole).toInt() : -1; };
    tile.serverGroupId = number(SourceServerGroupIdColumn);
    tile.serverId = number(SourceServerIdColumn);
    tile.channelId = number(SourceChannelIdColumn);
    return tile;
}

QmlVideoOutputProxyModel::QmlVideoOutputProxyModel(QObject *parent)
    : QAbstractTableModel(parent)
    , d_ptr(std::make_unique<QmlVideoOutputProxyModelPrivate>())
{
}

QmlVideoOutputProxyModel::~QmlVideoOutputProxyModel() = default;

QVariant QmlVideoOutputProxyModel::model() const
{
    return QVariant::fromValue(d_func()->model);
}

void QmlVideoOutputProxyModel::setModel(const QVariant &model)
{
    QmlVideoOutputProxyModelPrivate *d = d_func();
    QAbstractItemModel *source = modelOf(model);
    if (!source || source == d->model)
        return;
    beginResetModel();
    d->model = source;
    updateVideoOutputData();
    setCurrentOutputIndex(0);
    endResetModel();
    Q_EMIT modelChanged();
    emitCurrentIds();
}

int QmlVideoOutputProxyModel::size() const
{
    return int(d_func()->outputs.size());
}

void QmlVideoOutputProxyModel::resize(int count)
{
    QmlVideoOutputProxyModelPrivate *d = d_func();
    if (count == size() || count < 1)
        return;
    beginResetModel();
    d->outputs.resize(count);
    d->outputs.squeeze();
    updateVideoOutputData();
    setCurrentOutputIndex(0);
    endResetModel();
    Q_EMIT sizeChanged();
}

int QmlVideoOutputProxyModel::currentOutputIndex() const
{
    return d_func()->currentOutputIndex;
}

void QmlVideoOutputProxyModel::setCurrentOutputIndex(int index)
{
    QmlVideoOutputProxyModelPrivate *d = d_func();
    if (index == d->currentOutputIndex || !d->isTile(index))
        return;
    d->currentOutputIndex = index;
    Q_EMIT currentOutputIndexChanged();
    emitCurrentIds();
}

int QmlVideoOutputProxyModel::currentServerGroupId() const
{
    return d_func()->currentField(&VideoOutputData::serverGroupId);
}

int QmlVideoOutputProxyModel::currentServerId() const
{
    return d_func()->currentField(&VideoOutputData::serverId);
}

int QmlVideoOutputProxyModel::currentChannelId() const
{
    return d_func()->currentField(&VideoOutputData::channelId);
}

int QmlVideoOutputProxyModel::currentTrackId() const
{
    return d_func()->currentField(&VideoOutputData::trackId);
}

void QmlVideoOutputProxyModel::setChannel(int channelIndex, int index)
{
    QmlVideoOutputProxyModelPrivate *d = d_func();
    const int tile = d->tile(index);
    const VideoOutputData data = d->rowData(channelIndex);
    // The current tile may have gone with a smaller table, and a reader of the source may have changed the size.
    if (!d->isTile(tile))
        return;
    d->outputs[tile] = data;
    Q_EMIT dataChanged(this->index(tile, 0), this->index(tile, LastColumn));
    if (tile == d->currentOutputIndex)
        emitCurrentIds();
}

void QmlVideoOutputProxyModel::setChannelFromChannelUid(int channel_uid, int index)
{
    const QAbstractItemModel *model = d_func()->model;
    if (!model) {
        setChannel(0, -1);
        return;
    }
    // A number that begins with the digits of the one wanted is a hit as well, and may stand earlier.
    const QModelIndexList hits = model->match(model->index(0, 0), SourceChannelUidRole, QVariant(channel_uid), 1,
                                              Qt::MatchStartsWith | Qt::MatchWrap);
    if (!hits.isEmpty())
        setChannel(hits.constFirst().row(), index);
}

void QmlVideoOutputProxyModel::nextChannel(int index)
{
    const QmlVideoOutputProxyModelPrivate *d = d_func();
    const int tile = d->tile(index);
    if (!d->isTile(tile) || !d->model)
        return;
    const int row = d->outputs.at(tile).modelIndex;
    setChannel(row < d->model->rowCount() - 1 ? row + 1 : 0, tile);
}

void QmlVideoOutputProxyModel::previousChannel(int index)
{
    const QmlVideoOutputProxyModelPrivate *d = d_func();
    const int tile = d->tile(index);
    if (!d->isTile(tile) || !d->model)
        return;
    const int row = d->outputs.at(tile).modelIndex;
    setChannel(row < 1 ? d->model->rowCount() - 1 : row - 1, tile);
}

void QmlVideoOutputProxyModel::cacheModel(int index)
{
    QmlVideoOutputProxyModelPrivate *d = d_func();
    if (!d->isTile(index))
        return;
    const VideoOutputData tile = d->outputs.at(index);
    d->cachedOutputs = d->outputs;
    // The number of rows changes without a reset: only the tile that stays is announced.
    d->outputs = {tile};
    setChannel(tile.modelIndex, 0);
}

void QmlVideoOutputProxyModel::restoreModelCache()
{
    QmlVideoOutputProxyModelPrivate *d = d_func();
    d->outputs = d->cachedOutputs;
    for (int tile = 0; tile < d->outputs.size(); ++tile)
        setChannel(d->outputs.at(tile).modelIndex, tile);
    d->cachedOutputs = {};
}

int QmlVideoOutputProxyModel::rowCount(const QModelIndex &parent) const
{
    Q_UNUSED(parent)
    return size();
}

int QmlVideoOutputProxyModel::columnCount(const QModelIndex &parent) const
{
    Q_UNUSED(parent)
    return int(columns.size());
}

QVariant QmlVideoOutputProxyModel::data(const QModelIndex &index, int role) const
{
    const std::optional<int> column = columnFor(index.column(), role, Qt::DisplayRole);
    if (!column)
        return {};
    if (!isColumn(*column))
        return invalidColumn(*column);
    // A view that has not learnt of a smaller table yet may ask for a row that is gone.
    if (!d_func()->isTile(index.row()))
        return {};
    return d_func()->outputs.at(index.row()).*columns[std::size_t(*column)].field;
}

bool QmlVideoOutputProxyModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (columnFor(index.column(), role, Qt::EditRole) != ModelIndexColumn)
        return false;
    bool ok = false;
    const int row = value.toInt(&ok);
    if (ok)
        setChannel(row, index.row());
    return ok;
}

QVariant QmlVideoOutputProxyModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    const std::optional<int> column = columnFor(section, role, Qt::DisplayRole);
    if (orientation != Qt::Horizontal || !column)
        return {};
    if (!isColumn(*column))
        return invalidColumn(*column);
    return QString::fromLatin1(columns[std::size_t(*column)].heading);
}

Qt::ItemFlags QmlVideoOutputProxyModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.column() == ModelIndexColumn ? flags | Qt::ItemIsEditable : flags;
}

QHash<int, QByteArray> QmlVideoOutputProxyModel::roleNames() const
{
    QHash<int, QByteArray> names = QAbstractTableModel::roleNames();
    int role = Qt::UserRole;
    for (const Column &column : columns)
        names.insert(role++, QByteArray(column.role));
    return names;
}

void QmlVideoOutputProxyModel::emitCurrentIds()
{
    Q_EMIT currentServerGroupIdChanged();
    Q_EMIT currentServerIdChanged();
    Q_EMIT currentChannelIdChanged();
    Q_EMIT currentTrackIdChanged();
}

void QmlVideoOutputProxyModel::updateVideoOutputData()
{
    const QmlVideoOutputProxyModelPrivate *d = d_func();
    int next = 0;
    for (int tile = 0; tile < d->outputs.size(); ++tile) {
        // Not one past it: the first free tile behind an assigned one repeats that tile's row.
        next = qMax(next, d->outputs.at(tile).modelIndex);
        if (d->outputs.at(tile).isAssigned())
            continue;
        setChannel(next, tile);
        next = next == std::numeric_limits<int>::max() ? 0 : next + 1;
        if (d->model && next >= d->model->rowCount())
            next = 0;
    }
}

} // namespace orrin
