// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractTableModel>
#include <QList>

namespace orrin {

/*! A table with roles as the module's models have them: Qt::UserRole plus the column. */
class RoleModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    RoleModel(const QByteArrayList &roles, const QList<QVariantList> &rows)
        : m_roles(roles)
        , m_rows(rows)
    {
    }

    int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
    }
    int columnCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_roles.size());
    }
    QVariant data(const QModelIndex &index, int role) const override
    {
        if (!index.isValid() || (role != Qt::DisplayRole && role < Qt::UserRole))
            return {};
        return m_rows.value(index.row()).value(role == Qt::DisplayRole ? index.column() : role - Qt::UserRole);
    }
    QHash<int, QByteArray> roleNames() const override
    {
        QHash<int, QByteArray> names = QAbstractTableModel::roleNames();
        for (qsizetype i = 0; i < m_roles.size(); ++i)
            names.insert(Qt::UserRole + static_cast<int>(i), m_roles.at(i));
        return names;
    }

    void append(const QVariantList &row)
    {
        beginInsertRows({}, rowCount(), rowCount());
        m_rows.append(row);
        endInsertRows();
    }
    void removeLast()
    {
        beginRemoveRows({}, rowCount() - 1, rowCount() - 1);
        m_rows.removeLast();
        endRemoveRows();
    }
    void reset(const QByteArrayList &roles, const QList<QVariantList> &rows)
    {
        beginResetModel();
        m_roles = roles;
        m_rows = rows;
        endResetModel();
    }

private:
    QByteArrayList m_roles;
    QList<QVariantList> m_rows;
};

} // namespace orrin
