// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/orrinsdkqmlglobal.h"

#include <QAbstractListModel>
#include <QPointer>
#include <QtQml/qqmlregistration.h>

namespace orrin {

class ServerGroup;
class ServerListModel;

/*! The core's list of one group's servers, for combo boxes: it shows the rows and roles of the core's model, of which QML uses `display`
    and `uid`. Main thread. */
class ORRINSDKQML_EXPORT QmlServerListModel : public QAbstractListModel
{
    Q_OBJECT
    QML_NAMED_ELEMENT(ServerListModel)

public:
    /*! Without a group: no rows and no roles. */
    explicit QmlServerListModel(QObject *parent = nullptr);
    /*! \a group is borrowed; it may go before this model does. */
    QmlServerListModel(ServerGroup *group, QObject *parent);
    ~QmlServerListModel() override;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QHash<int, QByteArray> roleNames() const override;

private:
    Q_DISABLE_COPY_MOVE(QmlServerListModel)

    void connectSignalsSlots();

    // Owned. It has this model's parent, which may delete it first.
    QPointer<ServerListModel> m_model;
};

} // namespace orrin
