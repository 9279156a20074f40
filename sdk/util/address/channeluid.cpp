// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/util/channeluid.h>

namespace orrin {

QString ChannelUID::toString() const
{
    return serverUIDToString(serverUid) + u':' + QString::number(channelId);
}

QString serverUIDToString(unsigned long long uid)
{
    return QString::number(uid, 16).rightJustified(16, u'0');
}

} // namespace orrin
