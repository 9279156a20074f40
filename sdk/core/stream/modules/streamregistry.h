// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>
#include <contract/util/requestid.h>

#include <vector>

namespace orrin {

class AbstractStreamProcessor;

/*! Finds the stream that a frame's number names. Main thread. Owns no stream: each enters itself and leaves
 * with its end. */
class ORRINSDK_CORE_EXPORT StreamRegistry
{
public:
    static StreamRegistry &instance();

    void add(AbstractStreamProcessor *stream);
    void remove(AbstractStreamProcessor *stream);
    /*! The newest stream of that number, or null. Borrowed for the call. */
    AbstractStreamProcessor *stream(RequestId id) const;

private:
    std::vector<AbstractStreamProcessor *> m_streams;
};

} // namespace orrin
