// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "camera/encoder.h"

#include <cstddef>
#include <cstdint>
#include <list>
#include <map>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

namespace orrin::demo {

/*!
    Encoded groups of pictures of all cameras, the ones used last, within a bound of bytes. A group may hold
   its first frames only; who encodes further ones puts it back longer. Thread-safe.
*/
class GopCache
{
public:
    using PacketRef = std::shared_ptr<const AVPacket>;
    using Gop = std::vector<PacketRef>;

    /*! Which camera's profile, and which group of it. */
    struct Key
    {
        int stream = 0;
        std::int64_t gop = 0;

        friend auto operator<=>(const Key &, const Key &) = default;
    };

    explicit GopCache(std::size_t maximumBytes = std::size_t(64) << 20);
    ~GopCache();
    GopCache(const GopCache &) = delete;
    GopCache &operator=(const GopCache &) = delete;

    /*! The frames that are kept of a group; none when it is not known. */
    Gop find(const Key &key);

    /*! Keeps \a gop unless a longer one is kept already. The groups that were used longest ago go. */
    void put(const Key &key, const Gop &gop);

    std::size_t bytes() const;

private:
    struct Entry
    {
        Gop gop;
        std::size_t bytes = 0;
        std::list<Key>::iterator use;
    };

    mutable std::mutex m_mutex;
    const std::size_t m_maximumBytes;
    std::size_t m_bytes = 0;
    std::map<Key, Entry> m_entries;
    std::list<Key> m_uses; // the newest first
};

} // namespace orrin::demo
