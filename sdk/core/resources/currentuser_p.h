// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/sitedescription.h"

namespace orrin {

/*! What a CurrentUser holds: the user of the session as last described. */
class CurrentUserPrivate
{
public:
    UserDescription description;
};

} // namespace orrin
