// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSortFilterProxyModel>

/*! The cameras of all servers that the user may see, by server group, server and sort id; the roles are those of the module's
    ChannelModel. Main thread. */
class SortedEnabledCameraModel : public QSortFilterProxyModel
{
    Q_OBJECT
public:
    explicit SortedEnabledCameraModel(QObject *parent = nullptr);

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const override;
    bool lessThan(const QModelIndex &left, const QModelIndex &right) const override;
};
