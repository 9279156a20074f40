// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "resources/qmlchannel.h"
#include "resources/qmlchannelmodel.h"
#include "resources/resourcemodelprivate_p.h"

#include <vector>

namespace orrin {

class Server;
class ServerGroup;

class QmlChannelModelPrivate : public ResourceModelPrivate<QmlChannelModel, QmlChannel, 3>
{
public:
    explicit QmlChannelModelPrivate(QmlChannelModel *q);

    void listen();

    // Nothing sets them: the model lists every channel of every server.
    int serverGroupId = -1;
    int serverId = -1;

protected:
    QList<QPointer<QmlChannel>> collect(Pool &pool) override;

private:
    struct Row
    {
        Ids ids;
        QPointer<QmlChannel> item;
    };

    void refreshAtFacilitiesOf(const Server *server);
    void collectServer(Pool &pool, int groupId, const Server *server, std::vector<Row> &rows);
};

} // namespace orrin
