// SPDX-License-Identifier: GPL-3.0-or-later
#include "sortedenabledcameramodel.h"

#include <resources/qmlchannelmodel.h>

#include <array>

namespace {

int roleOf(const QAbstractItemModel *model, const char *name)
{
    return model->roleNames().key(name, -1);
}

} // namespace

SortedEnabledCameraModel::SortedEnabledCameraModel(QObject *parent) : QSortFilterProxyModel(parent)
{
    setSourceModel(new orrin::QmlChannelModel(this));
    sort(0);
}

bool SortedEnabledCameraModel::filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const
{
    static const int isCamera = roleOf(sourceModel(), "isCamera");
    static const int isEnabled = roleOf(sourceModel(), "isEnabled");
    const QModelIndex row = sourceModel()->index(sourceRow, 0, sourceParent);
    return row.data(isCamera).toBool() && row.data(isEnabled).toBool();
}

bool SortedEnabledCameraModel::lessThan(const QModelIndex &left, const QModelIndex &right) const
{
    static const std::array roles{roleOf(sourceModel(), "serverGroupId"), roleOf(sourceModel(), "serverId"),
                                  roleOf(sourceModel(), "sortId"), roleOf(sourceModel(), "channelId")};
    for (const int role : roles) {
        const int first = left.data(role).toInt();
        const int second = right.data(role).toInt();
        if (first != second)
            return first < second;
    }
    return false;
}
