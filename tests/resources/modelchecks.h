// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractTableModel>
#include <QByteArrayList>
#include <QStringList>
#include <QTest>

#include <limits>

namespace orrin {

/*! Checks the rules that all table models of resources share: roles, headings, and what is invalid. */
inline void checkTable(const QAbstractItemModel &model, const QByteArrayList &roles, const QStringList &headings,
                       const QString &pastTheEnd)
{
    const int columns = static_cast<int>(roles.size());
    QCOMPARE(model.columnCount(), columns);
    const QHash<int, QByteArray> names = model.roleNames();
    QCOMPARE(names.value(Qt::DisplayRole), QByteArray("display"));
    for (int column = 0; column < columns; ++column) {
        QCOMPARE(names.value(256 + column), roles.at(column));
        QCOMPARE(model.headerData(column, Qt::Horizontal, Qt::DisplayRole), headings.at(column));
        // A role chooses the column whatever the section is.
        QCOMPARE(model.headerData(0, Qt::Horizontal, 256 + column), headings.at(column));
        QVERIFY(!model.headerData(column, Qt::Vertical, Qt::DisplayRole).isValid());
        QVERIFY(!model.headerData(column, Qt::Vertical, 256 + column).isValid());
        QVERIFY(!model.headerData(column, Qt::Horizontal, Qt::EditRole).isValid());
    }
    QVERIFY(!names.contains(256 + columns));
    const QString past = QStringLiteral("Invalid column: %1").arg(columns);
    QCOMPARE(model.headerData(columns, Qt::Horizontal, Qt::DisplayRole), past);
    QCOMPARE(model.headerData(0, Qt::Horizontal, 256 + columns), past);
    QCOMPARE(model.headerData(std::numeric_limits<int>::max(), Qt::Horizontal, Qt::DisplayRole),
             QStringLiteral("Invalid column: 2147483647"));

    QVERIFY(model.rowCount() > 0);
    const QModelIndex first = model.index(0, 0);
    for (int column = 0; column < columns; ++column) {
        const QVariant shown = model.data(model.index(0, column), Qt::DisplayRole);
        QVERIFY(shown.isValid());
        QCOMPARE(model.data(first, 256 + column), shown);
        for (const int role : {int(Qt::EditRole), int(Qt::DecorationRole), 255, -1, std::numeric_limits<int>::min()})
            QVERIFY(!model.data(model.index(0, column), role).isValid());
    }
    QCOMPARE(model.data(first, 256 + columns), pastTheEnd.arg(columns));
    QCOMPARE(model.data(first, std::numeric_limits<int>::max()),
             pastTheEnd.arg(std::numeric_limits<int>::max() - 256));
    QVERIFY(!model.data(QModelIndex(), Qt::DisplayRole).isValid());
    QVERIFY(!model.data(QModelIndex(), 256).isValid());
    QVERIFY(!model.data(model.index(model.rowCount(), 0), 256).isValid());
    QCOMPARE(model.rowCount(first), 0);
}

} // namespace orrin
