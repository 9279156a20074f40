// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/replay/replaytime.h"

#include <QDateTime>
#include <QTimeZone>

#include <algorithm>

namespace orrin::replay {

QByteArray clockText(qint64 msSinceEpoch)
{
    const qint64 ms = std::clamp<qint64>(msSinceEpoch, 0, LatestTime / 300 * 1000);
    return QDateTime::fromMSecsSinceEpoch(ms, QTimeZone::utc()).toString(QStringLiteral("yyyyMMddTHHmmss.zzzZ")).toLatin1();
}

} // namespace orrin::replay
