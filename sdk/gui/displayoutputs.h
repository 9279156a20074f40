// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/displayfactory.h>
#include <contract/core/spabstractoutput.h>

#include <QList>
#include <QSharedPointer>

namespace orrin {

/*! What a display is made for. */
struct DisplayPurpose
{
    ChannelUID channel;
    QSharedPointer<PlaybackState> state;
    QString serverName;
    QString channelName;
};

/*! One output over one display of \a factory; without a factory or a display the output shows nothing. Main thread. */
QList<QSharedPointer<SPAbstractOutput>> createDisplayOutputs(DisplayFactory *factory, const DisplayPurpose &purpose);

} // namespace orrin
