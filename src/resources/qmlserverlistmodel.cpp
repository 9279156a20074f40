// SPDX-License-Identifier: GPL-3.0-or-later
#include "resources/qmlserverlistmodel.h"

#include <contract/core/serverlistmodel.h>

namespace orrin {

QmlServerListModel::QmlServerListModel(QObject *parent)
    : QAbstractListModel(parent)
{
}

QmlServerListModel::QmlServerListModel(ServerGroup *group, QObject *parent)
    : QAbstractListModel(parent)
    , m_model(new ServerListModel(group, parent))
{
    connectSignalsSlots();
}

QmlServerListModel::~QmlServerListModel()
{
    delete m_model.data();
}

int QmlServerListModel::rowCount(const QModelIndex &parent) const
{
    return m_model && !parent.isValid() ? m_model->rowCount() : 0;
}

QVariant QmlServerListModel::data(const QModelIndex &index, int role) const
{
    const QModelIndex own = m_model ? m_model->index(index.row(), index.column()) : QModelIndex();
    return own.isValid() ? m_model->data(own, role) : QVariant();
}

QHash<int, QByteArray> QmlServerListModel::roleNames() const
{
    return m_model ? m_model->roleNames() : QHash<int, QByteArray>();
}

void QmlServerListModel::connectSignalsSlots()
{
    if (!m_model)
        return;
    connect(m_model, &QAbstractItemModel::modelAboutToBeReset, this, [this] { beginResetModel(); });
    connect(m_model, &QAbstractItemModel::modelReset, this, [this] { endResetModel(); });
    connect(m_model, &QAbstractItemModel::rowsAboutToBeInserted, this,
            [this](const QModelIndex &parent, int first, int last) { beginInsertRows(parent, first, last); });
    // Removal is not passed on: the core's list only grows or is reset.
    connect(m_model, &QAbstractItemModel::rowsInserted, this, [this] { endInsertRows(); });
}

} // namespace orrin
