// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/planelayout.h"

#include <contract/codecs/export.h>
#include <contract/codecs/videoframe.h>

#include <cstddef>
#include <cstdint>
#include <memory>

namespace orrin {

/*! Reuses the memory of pictures. Safe from any thread.

    A buffer belongs to whoever holds its shared pointer; when the last one is dropped, on any thread and also after the pool is gone, its memory goes
    back to the pool or, when the pool keeps enough, to the system. */
class ORRINSDK_CODECS_EXPORT FramePool
{
public:
    /*! Free buffers above \a maxFreeBytes in all are given back to the system. */
    explicit FramePool(std::size_t maxFreeBytes = DefaultMaxFreeBytes);
    ~FramePool();
    FramePool(const FramePool &) = delete;
    FramePool &operator=(const FramePool &) = delete;

    /*! The pool of the process. */
    static FramePool &shared();

    /*! A picture's memory, its content undefined. */
    struct Buffer
    {
        std::shared_ptr<void> owner; //!< null when there was no memory
        VideoFrame::WritablePlanes planes;
    };

    /*! Null owner for an invalid layout or when memory ran out. */
    Buffer acquire(const PlaneLayout &layout);

    /*! Bytes kept for reuse. */
    std::size_t freeBytes() const;

    static constexpr std::size_t DefaultMaxFreeBytes = 64U << 20;

private:
    struct State;
    std::shared_ptr<State> m_state;
};

} // namespace orrin
