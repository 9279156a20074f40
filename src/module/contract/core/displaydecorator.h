// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace orrin {

/*! Draws over a display; supplied by hosts that paint with the library. */
class DisplayDecorator
{
public:
    virtual ~DisplayDecorator() = default;
};

} // namespace orrin
