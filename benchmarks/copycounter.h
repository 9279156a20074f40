// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>

/*! Counts the bytes that memcpy and memmove read from one watched span of memory, in the whole process, on all threads.

    Copies that a compiler expands in place, or that a driver does with its own loops, are not seen. */
namespace copycounter {

void watch(const void *begin, std::size_t size);
std::uint64_t bytes();
void reset();

} // namespace copycounter
