// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "resources/qmltrack.h"
#include "resources/qmltrackmodel.h"
#include "resources/resourcemodelprivate_p.h"

namespace orrin {

class Channel;
class Server;

class QmlTrackModelPrivate : public ResourceModelPrivate<QmlTrackModel, QmlTrack, 4>
{
public:
    explicit QmlTrackModelPrivate(QmlTrackModel *q);

    void listen();
    /*! Stores \a id in \a filter, refreshes and emits \a changed, if it is another id. */
    void setFilter(int &filter, int id, void (QmlTrackModel::*changed)());

    int serverGroupId = -1;
    int serverId = -1;
    int channelId = -1;

protected:
    std::vector<Ids> walk() override;
    QmlTrack *makeItem(const Ids &ids) override;

private:
    void walkServer(int groupId, const Server *server, std::vector<Ids> &rows);
    void walkChannel(int groupId, int ofServer, const Channel *channel, std::vector<Ids> &rows);
};

} // namespace orrin
