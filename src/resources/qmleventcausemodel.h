// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/orrinsdkqmlglobal.h"

#include <QAbstractListModel>
#include <QPointer>
#include <QtQml/qqmlregistration.h>

namespace orrin {

class ConnectionManager;
class EventCauseModel;

/*! The causes of events that a server knows, for combo boxes: it shows the rows and roles of the core's model, of which QML uses
    `display`. Main thread. */
class ORRINSDKQML_EXPORT QmlEventCauseModel : public QAbstractListModel
{
    Q_OBJECT
    QML_NAMED_ELEMENT(EventCauseModel)

public:
    /*! Without a server: no rows and no roles. */
    explicit QmlEventCauseModel(QObject *parent = nullptr);
    /*! The causes of one server, named by its id or its uid. \a manager is borrowed; \a flag is the core's. */
    QmlEventCauseModel(ConnectionManager *manager, int serverId, bool flag, QObject *parent = nullptr);
    QmlEventCauseModel(ConnectionManager *manager, unsigned long long serverUid, bool flag, QObject *parent = nullptr);
    ~QmlEventCauseModel() override;

    /*! Asks the server for its causes; they arrive as rows by the event loop. Without a server nothing happens. */
    void requestCauses();

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QHash<int, QByteArray> roleNames() const override;

private:
    Q_DISABLE_COPY_MOVE(QmlEventCauseModel)

    void connectSignalsSlots();

    QPointer<EventCauseModel> m_model; // owned
};

} // namespace orrin
