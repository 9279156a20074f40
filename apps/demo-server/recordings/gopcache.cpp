// SPDX-License-Identifier: GPL-3.0-or-later
#include "recordings/gopcache.h"

extern "C" {
#include <libavcodec/packet.h>
}

namespace orrin::demo {

GopCache::GopCache(std::size_t maximumBytes) : m_maximumBytes(maximumBytes) {}

GopCache::~GopCache() = default;

GopCache::Gop GopCache::find(const Key &key)
{
    const std::lock_guard lock(m_mutex);
    const auto found = m_entries.find(key);
    if (found == m_entries.end())
        return {};
    m_uses.splice(m_uses.begin(), m_uses, found->second.use);
    return found->second.gop;
}

void GopCache::put(const Key &key, const Gop &gop)
{
    std::size_t bytes = 0;
    for (const PacketRef &packet : gop)
        bytes += std::size_t(packet->size);
    const std::lock_guard lock(m_mutex);
    auto found = m_entries.find(key);
    if (found == m_entries.end()) {
        m_uses.push_front(key);
        found = m_entries.emplace(key, Entry{{}, 0, m_uses.begin()}).first;
    } else if (found->second.gop.size() >= gop.size()) {
        return;
    }
    m_bytes += bytes - found->second.bytes;
    found->second.gop = gop;
    found->second.bytes = bytes;
    m_uses.splice(m_uses.begin(), m_uses, found->second.use);
    while (m_bytes > m_maximumBytes && m_uses.size() > 1) {
        const auto oldest = m_entries.find(m_uses.back());
        m_bytes -= oldest->second.bytes;
        m_entries.erase(oldest);
        m_uses.pop_back();
    }
}

std::size_t GopCache::bytes() const
{
    const std::lock_guard lock(m_mutex);
    return m_bytes;
}

} // namespace orrin::demo
