// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/spabstractauthentication.h>

namespace orrin {

SPAbstractAuthentication::~SPAbstractAuthentication() = default;

} // namespace orrin
