// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/sitedescription.h"

namespace orrin {

/*! What a Track holds: its description as last told by the session. */
class TrackPrivate
{
public:
    TrackDescription description;
};

} // namespace orrin
