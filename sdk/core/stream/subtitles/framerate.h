// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>
#include <contract/util/time300.h>

#include <array>
#include <cstddef>

namespace orrin {

/*! The rate of a stream by the capture times of its last pictures. A value. */
class ORRINSDK_CORE_EXPORT FrameRate
{
public:
    /*! Notes a picture captured at \a time. A step of no time, or of more than ten seconds, begins anew. */
    void add(Time300 time);
    /*! Pictures in a second, whichever way time runs; 0 before the second picture. */
    double perSecond() const;

private:
    std::array<Time300, 16> m_times{};
    std::size_t m_count = 0;
    std::size_t m_next = 0;
};

} // namespace orrin
