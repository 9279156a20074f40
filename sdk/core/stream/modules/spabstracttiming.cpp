// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/spabstracttiming.h>

namespace orrin {

SPAbstractTiming::~SPAbstractTiming() = default;

} // namespace orrin
