// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/util/time300.h>

namespace orrin {

/*! The span that a track has recorded. A value. */
class TrackBounds
{
public:
    TrackBounds(Time300 begin, Time300 end) : m_begin(begin), m_end(end) {}

    Time300 begin() const { return m_begin; }
    Time300 end() const { return m_end; }

private:
    Time300 m_begin;
    Time300 m_end;
};

} // namespace orrin
