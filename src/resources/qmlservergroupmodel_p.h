// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "resources/qmlservergroup.h"
#include "resources/qmlservergroupmodel.h"
#include "resources/resourcemodelprivate_p.h"

namespace orrin {

class QmlServerGroupModelPrivate : public ResourceModelPrivate<QmlServerGroupModel, QmlServerGroup, 1>
{
public:
    explicit QmlServerGroupModelPrivate(QmlServerGroupModel *q);

    void listen();

protected:
    std::vector<Ids> walk() override;
    QmlServerGroup *makeItem(const Ids &ids) override;
};

} // namespace orrin
