// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractItemModel>
#include <QList>
#include <QPointer>

namespace orrin {

/*! What one tile shows; a field is -1 before it is assigned. The fields are the columns, in this order. */
struct VideoOutputData
{
    int modelIndex = -1;
    int serverGroupId = -1;
    int serverId = -1;
    int channelId = -1;
    int trackId = -1;

    bool isAssigned() const { return serverGroupId >= 0 && serverId >= 0 && channelId >= 0 && trackId >= 0; }
};

class QmlVideoOutputProxyModelPrivate
{
public:
    bool isTile(int index) const { return index >= 0 && index < outputs.size(); }
    /*! \a index if it is a tile, else the current one, which may be none. */
    int tile(int index) const { return isTile(index) ? index : currentOutputIndex; }
    int currentField(int VideoOutputData::*field) const;
    /*! What a tile holds that shows this row of the source. */
    VideoOutputData rowData(int row) const;

    QPointer<QAbstractItemModel> model;
    QList<VideoOutputData> outputs;
    QList<VideoOutputData> cachedOutputs;
    int currentOutputIndex = -1;
};

} // namespace orrin
