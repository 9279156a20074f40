// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/framepool.h"

#include <mutex>
#include <new>
#include <utility>
#include <vector>

namespace orrin {

namespace {

constexpr std::align_val_t Alignment{64};
// Optimised readers may touch a few bytes behind the last line.
constexpr std::size_t Slack = 64;

struct Block
{
    std::uint8_t *data = nullptr;
    std::size_t size = 0;
};

void release(const Block &block)
{
    ::operator delete(block.data, Alignment);
}

} // namespace

struct FramePool::State
{
    explicit State(std::size_t maxFreeBytes) : maxFreeBytes(maxFreeBytes) {}
    ~State()
    {
        for (const Block &block : free)
            release(block);
    }

    Block take(std::size_t size)
    {
        const std::lock_guard lock(mutex);
        for (auto it = free.rbegin(); it != free.rend(); ++it) {
            if (it->size != size)
                continue;
            const Block block = *it;
            *it = free.back();
            free.pop_back();
            freeBytes -= size;
            return block;
        }
        return {};
    }

    void giveBack(const Block &block)
    {
        std::vector<Block> surplus;
        {
            const std::lock_guard lock(mutex);
            free.push_back(block);
            freeBytes += block.size;
            std::size_t drop = 0;
            while (freeBytes > maxFreeBytes && drop < free.size())
                freeBytes -= free[drop++].size;
            const auto end = free.begin() + std::ptrdiff_t(drop);
            surplus.assign(free.begin(), end);
            free.erase(free.begin(), end);
        }
        for (const Block &old : surplus)
            release(old);
    }

    const std::size_t maxFreeBytes;
    mutable std::mutex mutex;
    std::vector<Block> free;
    std::size_t freeBytes = 0;
};

FramePool::FramePool(std::size_t maxFreeBytes) : m_state(std::make_shared<State>(maxFreeBytes)) {}
FramePool::~FramePool() = default;

FramePool &FramePool::shared()
{
    static FramePool pool;
    return pool;
}

FramePool::Buffer FramePool::acquire(const PlaneLayout &layout)
{
    Buffer buffer;
    if (!layout.isValid())
        return buffer;
    const std::size_t size = layout.bytes() + Slack;
    Block block = m_state->take(size);
    if (!block.data) {
        block.size = size;
        block.data = static_cast<std::uint8_t *>(::operator new(size, Alignment, std::nothrow));
        if (!block.data)
            return buffer;
    }
    buffer.owner = std::shared_ptr<void>(block.data, [state = m_state, size](void *data) {
        state->giveBack({static_cast<std::uint8_t *>(data), size});
    });
    buffer.planes.y = block.data;
    buffer.planes.u = block.data + layout.bytesY();
    buffer.planes.v = buffer.planes.u + layout.bytesUV();
    buffer.planes.strideY = layout.strideY();
    buffer.planes.strideUV = layout.strideUV();
    return buffer;
}

std::size_t FramePool::freeBytes() const
{
    const std::lock_guard lock(m_state->mutex);
    return m_state->freeBytes;
}

} // namespace orrin
