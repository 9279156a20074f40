// SPDX-License-Identifier: GPL-3.0-or-later
#include "onvif/searches.h"

#include <algorithm>

namespace orrin::demo {

std::optional<QString> Searches::begin(Search search)
{
    forgetOld();
    if (m_searches.size() >= MaximumCount)
        return std::nullopt;
    search.lifetime = std::clamp(search.lifetime, ShortestLifetime, LongestLifetime);
    search.used.start();
    const QString token = QStringLiteral("S_%1").arg(++m_next);
    m_searches.emplace(token, std::move(search));
    return token;
}

Searches::Search *Searches::use(const QString &token, const QString &user, Search::Kind kind)
{
    forgetOld();
    const auto found = m_searches.find(token);
    if (found == m_searches.end() || found->second.user != user || found->second.kind != kind)
        return nullptr;
    found->second.used.restart();
    return &found->second;
}

bool Searches::end(const QString &token, const QString &user)
{
    const auto found = m_searches.find(token);
    if (found == m_searches.end() || found->second.user != user)
        return false;
    m_searches.erase(found);
    return true;
}

void Searches::forgetOld()
{
    std::erase_if(m_searches, [](const auto &each) {
        return each.second.used.durationElapsed() > each.second.lifetime;
    });
}

} // namespace orrin::demo
