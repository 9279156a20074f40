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
    QList<QPointer<QmlTrack>> collect(Pool &pool) override;

private:
    void collectServer(Pool &pool, int groupId, const Server *server, QList<QPointer<QmlTrack>> &next);
    void collectChannel(Pool &pool, int groupId, int ofServer, const Channel *channel, QList<QPointer<QmlTrack>> &next);
};

} // namespace orrin
