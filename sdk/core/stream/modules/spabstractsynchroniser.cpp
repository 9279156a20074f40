// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/spabstractsynchroniser.h>

namespace orrin {

SPAbstractSynchroniser::~SPAbstractSynchroniser() = default;

} // namespace orrin
