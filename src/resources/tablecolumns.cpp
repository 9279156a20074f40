// SPDX-License-Identifier: GPL-3.0-or-later
#include "resources/tablecolumns_p.h"

namespace orrin {

std::optional<int> columnForRole(int column, int role)
{
    if (role >= Qt::UserRole)
        return role - Qt::UserRole;
    if (role == Qt::DisplayRole)
        return column;
    return std::nullopt;
}

QHash<int, QByteArray> withColumnRoles(QHash<int, QByteArray> roles, std::span<const TableColumn> columns)
{
    int role = Qt::UserRole;
    for (const TableColumn &column : columns)
        roles.insert(role++, QByteArray(column.role));
    return roles;
}

QVariant columnHeading(std::span<const TableColumn> columns, int section, Qt::Orientation orientation, int role,
                       QString (*translate)(const char *text, const char *comment, int n))
{
    const std::optional<int> column = columnForRole(section, role);
    if (orientation != Qt::Horizontal || !column)
        return {};
    if (*column < 0 || *column >= static_cast<int>(columns.size()))
        return invalidColumnText(*column);
    return translate(columns[static_cast<std::size_t>(*column)].heading, nullptr, -1);
}

QString invalidColumnText(int column)
{
    return QStringLiteral("Invalid column: %1").arg(column);
}

} // namespace orrin
