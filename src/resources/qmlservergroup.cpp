// SPDX-License-Identifier: GPL-3.0-or-later
#include "resources/qmlservergroup.h"

#include "resources/qmlservergroup_p.h"
#include "resources/resourcelookup_p.h"

#include <contract/core/servergroup.h>

#include <array>

namespace orrin {

QmlServerGroup::QmlServerGroup(QObject *parent)
    : QObject(parent)
    , d_ptr(std::make_unique<QmlServerGroupPrivate>())
{
}

QmlServerGroup::~QmlServerGroup() = default;

int QmlServerGroup::serverGroupId() const
{
    return d_func()->serverGroupId;
}

void QmlServerGroup::setServerGroupId(int id)
{
    if (d_func()->serverGroupId == id)
        return;
    d_func()->serverGroupId = id;
    emitAll<QmlServerGroup, 2>(this, {&QmlServerGroup::serverGroupIdChanged, &QmlServerGroup::hostsChanged});
}

QString QmlServerGroup::hosts() const
{
    const ServerGroup *group = findServerGroup(d_func()->serverGroupId);
    return group ? group->hosts().join(QStringLiteral(", ")) : QString();
}

} // namespace orrin
