// SPDX-License-Identifier: GPL-3.0-or-later
#include "resources/qmleventcausemodel.h"

#include <contract/core/connectionmanager.h>
#include <contract/core/eventcausemodel.h>

namespace orrin {

QmlEventCauseModel::QmlEventCauseModel(QObject *parent)
    : QAbstractListModel(parent)
{
}

QmlEventCauseModel::QmlEventCauseModel(ConnectionManager *manager, int serverId, bool flag, QObject *parent)
    : QAbstractListModel(parent)
    , m_model(new EventCauseModel(manager, serverId, flag, nullptr))
{
    connectSignalsSlots();
}

QmlEventCauseModel::QmlEventCauseModel(ConnectionManager *manager, unsigned long long serverUid, bool flag,
                                       QObject *parent)
    : QAbstractListModel(parent)
    , m_model(new EventCauseModel(manager, serverUid, flag, nullptr))
{
    connectSignalsSlots();
}

QmlEventCauseModel::~QmlEventCauseModel()
{
    delete m_model.data();
}

void QmlEventCauseModel::requestCauses()
{
    if (m_model)
        m_model->requestCauses();
}

int QmlEventCauseModel::rowCount(const QModelIndex &parent) const
{
    return m_model && !parent.isValid() ? m_model->rowCount() : 0;
}

QVariant QmlEventCauseModel::data(const QModelIndex &index, int role) const
{
    const QModelIndex own = m_model ? m_model->index(index.row(), index.column()) : QModelIndex();
    return own.isValid() ? m_model->data(own, role) : QVariant();
}

QHash<int, QByteArray> QmlEventCauseModel::roleNames() const
{
    return m_model ? m_model->roleNames() : QHash<int, QByteArray>();
}

void QmlEventCauseModel::connectSignalsSlots()
{
    if (!m_model)
        return;
    connect(m_model, &QAbstractItemModel::modelAboutToBeReset, this, [this] { beginResetModel(); });
    connect(m_model, &QAbstractItemModel::modelReset, this, [this] { endResetModel(); });
    connect(m_model, &QAbstractItemModel::rowsAboutToBeInserted, this,
            [this](const QModelIndex &parent, int first, int last) { beginInsertRows(parent, first, last); });
    connect(m_model, &QAbstractItemModel::rowsInserted, this, [this] { endInsertRows(); });
}

} // namespace orrin
