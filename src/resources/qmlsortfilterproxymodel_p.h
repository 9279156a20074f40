// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "resources/qmlsortfilterproxymodel.h"

#include <QByteArray>
#include <QHash>
#include <QMetaObject>
#include <QPointer>
#include <QRegularExpression>
#include <QString>
#include <QStringMatcher>
#include <QVariant>

#include <vector>

namespace orrin {

/*! A pattern, compiled once. Most patterns that people type are plain words, which are looked for without an expression, with the same
    result. */
class FilterPattern
{
public:
    explicit FilterPattern(const QString &pattern);

    bool matches(const QString &text) const;
    /*! Also true for a text that ends where a match might still go on. */
    bool matchesPartially(const QString &text) const;

private:
    bool holdsWord(const QString &text) const;
    bool endsInBeginningOfWord(const QString &text) const;

    enum class Kind { Word, Expression, Invalid };

    Kind m_kind;
    QStringMatcher m_word;
    QRegularExpression m_expression;
};

class QmlSortFilterProxyModelPrivate
{
public:
    /*! A filter of one role. */
    struct Filter
    {
        QVariant value;
        bool match = true;
        std::vector<FilterPattern> candidates;
        int role = -1; // see resolveRoles()
    };
    using Filters = QHash<QByteArray, Filter>;

    explicit QmlSortFilterProxyModelPrivate(QmlSortFilterProxyModel *q);

    void followSource();
    void updateFilter();
    void setFilter(Filters &filters, const QByteArray &role, const QVariant &value, bool match);

    bool accepts(int row, const QModelIndex &parent);

    QPointer<QmlSortFilterProxyModel> q_ptr;
    QByteArray sortRole;
    Qt::SortOrder sortOrder = Qt::AscendingOrder;
    QByteArray filterRole;
    QString filterRegExp;
    Filters orFilters;
    Filters andFilters;

    FilterPattern pattern{QString()}; // filterRegExp, compiled

private:
    void resolveRoles(const QAbstractItemModel &source);
    bool passesRole(const QAbstractItemModel &source, int row, const QModelIndex &parent) const;
    bool passesAnd(const QAbstractItemModel &source, int row, const QModelIndex &parent) const;
    bool passesOr(const QAbstractItemModel &source, int row, const QModelIndex &parent) const;

    // The numbers of all roles that the filters name, found once until the source or a filter changes.
    bool m_rolesResolved = false;
    int m_filterRole = -1;
    QMetaObject::Connection m_sourceReset;
};

} // namespace orrin
