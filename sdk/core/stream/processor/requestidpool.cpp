// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/processor/requestidpool.h"

namespace orrin {

RequestIdPool &RequestIdPool::instance()
{
    static RequestIdPool pool;
    return pool;
}

RequestId RequestIdPool::acquire()
{
    for (std::size_t i = 0; i < m_used.size(); ++i) {
        ++m_last;
        if (m_last == 0 || m_used[m_last])
            continue;
        m_used[m_last] = true;
        return {m_last};
    }
    return {};
}

void RequestIdPool::release(RequestId id)
{
    m_used[id.value] = false;
}

} // namespace orrin
