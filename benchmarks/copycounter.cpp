// SPDX-License-Identifier: GPL-3.0-or-later
#include "copycounter.h"

#include <atomic>

#include <dlfcn.h>

namespace {

std::atomic<std::uintptr_t> watchedBegin{0};
std::atomic<std::uintptr_t> watchedEnd{0};
std::atomic<std::uint64_t> counted{0};

using Copy = void *(*)(void *, const void *, std::size_t);

// Until the C library's own is known (it may itself copy while it is looked up), byte by byte.
void *plainCopy(void *to, const void *from, std::size_t size)
{
    auto *target = static_cast<volatile unsigned char *>(to);
    const auto *source = static_cast<const volatile unsigned char *>(from);
    if (target < source) {
        for (std::size_t i = 0; i < size; ++i)
            target[i] = source[i];
    } else {
        for (std::size_t i = size; i > 0; --i)
            target[i - 1] = source[i - 1];
    }
    return to;
}

Copy library(const char *name)
{
    return reinterpret_cast<Copy>(dlsym(RTLD_NEXT, name));
}

void count(const void *from, std::size_t size)
{
    const auto begin = reinterpret_cast<std::uintptr_t>(from);
    if (begin >= watchedBegin.load(std::memory_order_relaxed) && begin < watchedEnd.load(std::memory_order_relaxed))
        counted.fetch_add(size, std::memory_order_relaxed);
}

std::atomic<Copy> realCopy{nullptr};
std::atomic<Copy> realMove{nullptr};

} // namespace

namespace copycounter {

void watch(const void *begin, std::size_t size)
{
    realCopy = library("memcpy");
    realMove = library("memmove");
    watchedBegin = reinterpret_cast<std::uintptr_t>(begin);
    watchedEnd = reinterpret_cast<std::uintptr_t>(begin) + size;
}

std::uint64_t bytes()
{
    return counted.load();
}

void reset()
{
    counted = 0;
}

} // namespace copycounter

extern "C" {

__attribute__((visibility("default"))) void *memcpy(void *__restrict to, const void *__restrict from, std::size_t size) noexcept
{
    count(from, size);
    const Copy copy = realCopy.load(std::memory_order_relaxed);
    return copy ? copy(to, from, size) : plainCopy(to, from, size);
}

__attribute__((visibility("default"))) void *memmove(void *to, const void *from, std::size_t size) noexcept
{
    count(from, size);
    const Copy move = realMove.load(std::memory_order_relaxed);
    return move ? move(to, from, size) : plainCopy(to, from, size);
}
}
