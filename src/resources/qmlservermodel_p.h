// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "resources/qmlserver.h"
#include "resources/qmlservermodel.h"
#include "resources/resourcemodelprivate_p.h"

namespace orrin {

class QmlServerModelPrivate : public ResourceModelPrivate<QmlServerModel, QmlServer, 2>
{
public:
    explicit QmlServerModelPrivate(QmlServerModel *q);

    void listen();

    int serverGroupId = -1;

protected:
    std::vector<Ids> walk() override;
    QmlServer *makeItem(const Ids &ids) override;
};

} // namespace orrin
