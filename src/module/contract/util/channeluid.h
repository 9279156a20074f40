// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/util/export.h>

#include <QHashFunctions>
#include <QMetaType>
#include <QString>

#include <compare>

namespace orrin {

/*! What the core takes to address a channel: the 64-bit uid of its server and the channel's id there. */
struct ORRINSDK_UTIL_EXPORT ChannelUID
{
    /*! The null value: server uid 0, channel id -1. */
    constexpr ChannelUID() = default;
    constexpr ChannelUID(unsigned long long serverUid, int channelId) : serverUid(serverUid), channelId(channelId) {}

    unsigned long long serverUid = 0;
    int channelId = -1;

    bool isNull() const { return *this == ChannelUID(); }

    /*! The uid as text: the server's as by serverUIDToString(), a colon, the channel id in decimal. */
    QString toString() const;

    friend auto operator<=>(const ChannelUID &, const ChannelUID &) = default;
    friend size_t qHash(const ChannelUID &uid, size_t seed = 0) noexcept
    {
        return qHashMulti(seed, uid.serverUid, uid.channelId);
    }
};

/*! The uid as 16 hexadecimal digits in lower case. */
ORRINSDK_UTIL_EXPORT QString serverUIDToString(unsigned long long uid);

} // namespace orrin

Q_DECLARE_METATYPE(orrin::ChannelUID)
