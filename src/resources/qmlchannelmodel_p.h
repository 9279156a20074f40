// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "resources/qmlchannel.h"
#include "resources/qmlchannelmodel.h"
#include "resources/resourcemodelprivate_p.h"

#include <vector>

namespace orrin {

class Server;

class QmlChannelModelPrivate : public ResourceModelPrivate<QmlChannelModel, QmlChannel, 3>
{
public:
    explicit QmlChannelModelPrivate(QmlChannelModel *q);

    void listen();

    // Nothing sets them: the model lists every channel of every server.
    int serverGroupId = -1;
    int serverId = -1;

protected:
    std::vector<Ids> walk() override;
    QmlChannel *makeItem(const Ids &ids) override;

private:
    void refreshAtFacilitiesOf(const Server *server);
    void walkServer(int groupId, const Server *server, std::vector<Ids> &rows);
};

} // namespace orrin
