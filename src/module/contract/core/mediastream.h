// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace orrin {

/*! A source of media that a factory may be given; used by the core alone. */
class MediaStream
{
public:
    virtual ~MediaStream() = default;
};

} // namespace orrin
