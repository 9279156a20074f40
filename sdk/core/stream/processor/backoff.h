// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>

#include <chrono>

namespace orrin {

/*! The pauses between attempts: the base, doubled each time up to sixty times the base, with up to a fifth more or less by chance, so that
    streams which broke together do not come back together. */
class ORRINSDK_CORE_EXPORT BackOff
{
public:
    static constexpr int MaxFactor = 60;

    explicit BackOff(std::chrono::milliseconds base) : m_base(base) {}

    std::chrono::milliseconds next();
    /*! The next pause is at least 2 to the power of \a attempt times the base, for failures that time alone seldom mends. */
    void skipTo(int attempt);
    void reset() { m_attempt = 0; }

private:
    std::chrono::milliseconds m_base;
    int m_attempt = 0;
};

} // namespace orrin
