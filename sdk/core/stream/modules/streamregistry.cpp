// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/modules/streamregistry.h"

#include <contract/core/abstractstreamprocessor.h>

#include <algorithm>

namespace orrin {

StreamRegistry &StreamRegistry::instance()
{
    // Never destroyed: a stream may end later than the other statics do.
    static StreamRegistry &registry = *new StreamRegistry;
    return registry;
}

void StreamRegistry::add(AbstractStreamProcessor *stream)
{
    m_streams.push_back(stream);
}

void StreamRegistry::remove(AbstractStreamProcessor *stream)
{
    std::erase(m_streams, stream);
}

AbstractStreamProcessor *StreamRegistry::stream(RequestId id) const
{
    const auto found =
        std::find_if(m_streams.rbegin(), m_streams.rend(),
                     [id](const AbstractStreamProcessor *stream) { return stream->requestId() == id; });
    return found == m_streams.rend() ? nullptr : *found;
}

} // namespace orrin
