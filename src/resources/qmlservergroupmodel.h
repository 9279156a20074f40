// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/logclient.h"
#include "module/orrinsdkqmlglobal.h"

#include <QAbstractTableModel>
#include <QtQml/qqmlregistration.h>

#include <memory>

namespace orrin {

class QmlServerGroupModelPrivate;

/*! The server groups, one a row. Main thread.

    Rebuilt whole, by a model reset, when servers come; the objects of groups that are still there survive. The role of a
    column is Qt::UserRole plus its number. */
class ORRINSDKQML_EXPORT QmlServerGroupModel : public QAbstractTableModel
{
    Q_OBJECT
    QML_NAMED_ELEMENT(ServerGroupModel)

    /*! The number of rows. countChanged() is never emitted: follow the model's reset. */
    Q_PROPERTY(int count READ count NOTIFY countChanged FINAL)

public:
    explicit QmlServerGroupModel(QObject *parent = nullptr);
    /*! The items that are listed stay alive and belong to nobody. */
    ~QmlServerGroupModel() override;

    int count() const;

    /*! The QmlServerGroup* of that row, or an invalid value. The model owns it: do not hold it beyond a reset. */
    Q_INVOKABLE QVariant get(int index) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void countChanged();

private:
    Q_DISABLE_COPY_MOVE(QmlServerGroupModel)

    QmlServerGroupModelPrivate *d_func() const { return d_ptr.get(); }
    template <class, class, std::size_t>
    friend class ResourceModelPrivate;

    std::unique_ptr<QmlServerGroupModelPrivate> d_ptr;
    LogClient m_log;
};

} // namespace orrin
