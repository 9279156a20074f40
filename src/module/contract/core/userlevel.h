// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace orrin {

/*! The level of a user. */
enum class UserLevel : int { Guest = 0, User = 1, Administrator = 2, Installer = 3, Operator = 4 };

} // namespace orrin
