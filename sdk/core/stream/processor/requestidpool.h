// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>
#include <contract/util/requestid.h>

#include <bitset>

namespace orrin {

/*! Gives numbers to running streams: unique among those given out, never 0, counting up and beginning again behind 65535, so that a number
    just freed is not met again soon. Main thread. */
class ORRINSDK_CORE_EXPORT RequestIdPool
{
public:
    static RequestIdPool &instance();

    /*! 0 when all 65535 are given out. */
    RequestId acquire();
    void release(RequestId id);

private:
    std::bitset<65536> m_used;
    quint16 m_last = 0;
};

} // namespace orrin
