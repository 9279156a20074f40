// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/orrinsdkqmlglobal.h"

#include <QByteArray>
#include <QSortFilterProxyModel>
#include <QString>
#include <QVariant>
#include <QtQml/qqmlregistration.h>

#include <memory>

namespace orrin {

class QmlSortFilterProxyModelPrivate;

/*! Sorts and filters a model of this module by the names of its roles. Main thread.

    A row passes three stages: the regular expression filterRegExp on filterRole, which also lets a text pass that could still
    grow into a match; all filters of addAndFilter(); and, if there are any, at least one of addOrFilter(). Patterns are case
    sensitive and unanchored; an invalid one never matches. The model's roles are expected to be Qt::UserRole plus the column.

    sortRole and filterRole are names and hide the base class's properties, which are numbers. */
class ORRINSDKQML_EXPORT QmlSortFilterProxyModel : public QSortFilterProxyModel
{
    Q_OBJECT
    QML_NAMED_ELEMENT(SortFilterProxyModel)

    /*! The source model. Null, anything that is no item model, the present one, and a model that itself shows this one are ignored:
        a model cannot be cleared. Setting one drops all receivers of countChanged(). */
    Q_PROPERTY(QVariant model READ model WRITE setModel NOTIFY modelChanged FINAL)
    Q_PROPERTY(QByteArray sortRole READ sortRole WRITE setSortRole NOTIFY sortRoleChanged FINAL)
    Q_PROPERTY(Qt::SortOrder sortOrder READ sortOrder WRITE setSortOrder NOTIFY sortOrderChanged FINAL)
    /*! Without a role that the source has, filterRegExp filters nothing. */
    Q_PROPERTY(QByteArray filterRole READ filterRole WRITE setFilterRole NOTIFY filterRoleChanged FINAL)
    Q_PROPERTY(QString filterRegExp READ filterRegExp WRITE setFilterRexExp NOTIFY filterRegExpChanged FINAL)
    /*! The number of rows. Announced when rows of the source come or go, not when a filter changes or the source is reset. */
    Q_PROPERTY(int count READ count NOTIFY countChanged FINAL)
    /*! One map with "key" and "value" for each OR filter, then for each AND filter. */
    Q_PROPERTY(QVariantList filters READ filters NOTIFY filtersChanged FINAL)

public:
    explicit QmlSortFilterProxyModel(QObject *parent = nullptr);
    ~QmlSortFilterProxyModel() override;

    QVariant model() const;
    void setModel(const QVariant &model);
    QByteArray sortRole() const;
    void setSortRole(const QByteArray &role);
    Qt::SortOrder sortOrder() const;
    void setSortOrder(Qt::SortOrder order);
    QByteArray filterRole() const;
    void setFilterRole(const QByteArray &role);
    QString filterRegExp() const;
    void setFilterRexExp(const QString &pattern);
    int count() const;
    QVariantList filters() const;

    /*! What the source's get() returns for the row that proxy row \a index shows; invalid when the source has none. */
    Q_INVOKABLE QVariant get(int index) const;

    /*! Sets the OR filter of role \a filter. \a value is a pattern or a list of patterns. With \a match a row is accepted when
        one of them matches, without it when one does not. */
    Q_INVOKABLE void addOrFilter(QByteArray filter, QVariant value, bool match);
    /*! Sets the AND filter of role \a filter. \a value is a pattern or a list of patterns. With \a match a row is rejected
        unless all of them match, without it when one does. */
    Q_INVOKABLE void addAndFilter(QByteArray filter, QVariant value, bool match);
    Q_INVOKABLE void clearFilters();

Q_SIGNALS:
    void modelChanged();
    void sortRoleChanged();
    void sortOrderChanged();
    void filterRoleChanged();
    void filterRegExpChanged();
    void countChanged();
    void filtersChanged();

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const override;

private:
    Q_DISABLE_COPY_MOVE(QmlSortFilterProxyModel)

    QmlSortFilterProxyModelPrivate *d_func() const { return d_ptr.get(); }
    friend class QmlSortFilterProxyModelPrivate;

    std::unique_ptr<QmlSortFilterProxyModelPrivate> d_ptr;
};

} // namespace orrin
