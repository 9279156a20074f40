// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>

#include <QAbstractListModel>

#include <memory>

namespace orrin {

class ServerGroup;
class ServerListModelPrivate;

/*! The servers of one group, by server id ascending. Main thread.

    Rows are inserted when servers join; when one leaves, the model resets. The group is borrowed; once it is gone the model is empty. */
class ORRINSDK_CORE_EXPORT ServerListModel : public QAbstractListModel
{
    Q_OBJECT
public:
    enum Role : int {
        UidRole = Qt::UserRole, //!< `uid`: the server's uid, 64-bit; the server's name is Qt::DisplayRole, `display`
    };

    /*! \a group may be null: no rows. */
    explicit ServerListModel(ServerGroup *group, QObject *parent = nullptr);
    ~ServerListModel() override;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

private:
    friend class ServerListModelPrivate;

    std::unique_ptr<ServerListModelPrivate> d;
};

} // namespace orrin
