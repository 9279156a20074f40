// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QVariant>

#include <optional>
#include <span>

namespace orrin {

/*! A column of a table model: its role is Qt::UserRole plus its position. */
struct TableColumn
{
    const char *role;
    const char *heading; //!< before translation
};

/*! The column that \a role asks for: \a column for Qt::DisplayRole, the role's own from Qt::UserRole on, else none. */
std::optional<int> columnForRole(int column, int role);

/*! \a roles with those of \a columns added. */
QHash<int, QByteArray> withColumnRoles(QHash<int, QByteArray> roles, std::span<const TableColumn> columns);

/*! A heading as headerData() returns it: translated by \a translate, the text for an invalid column past the end, and an invalid
    value for another orientation or role. */
QVariant columnHeading(std::span<const TableColumn> columns, int section, Qt::Orientation orientation, int role,
                       QString (*translate)(const char *text, const char *comment, int n));

/*! The text that stands for a column past the end. */
QString invalidColumnText(int column);

} // namespace orrin
