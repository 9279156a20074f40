// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>

#include <QAbstractListModel>

#include <memory>

namespace orrin {

class ConnectionManager;
class EventCauseModelPrivate;

/*! The causes of events that are known of one server, as texts in the order in which they were first seen. Main thread.

    Empty until requestCauses(). Rows are only added; an unknown server has none. The role is Qt::DisplayRole, `display`. */
class ORRINSDK_CORE_EXPORT EventCauseModel : public QAbstractListModel
{
    Q_OBJECT
public:
    /*! The server of that id in the group of the lowest id that has one. \a withAny true begins the list with an empty text, which stands for any
        cause. \a manager is borrowed and may be null. */
    EventCauseModel(ConnectionManager *manager, int serverId, bool withAny, QObject *parent = nullptr);
    /*! The server of that uid. */
    EventCauseModel(ConnectionManager *manager, unsigned long long serverUid, bool withAny, QObject *parent = nullptr);
    ~EventCauseModel() override;

    /*! Asks for the causes; those that are not in the list yet are appended by the event loop, and so are
        those that the server itself tells later. */
    void requestCauses();

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;

private:
    friend class EventCauseModelPrivate;

    std::unique_ptr<EventCauseModelPrivate> d;
};

} // namespace orrin
