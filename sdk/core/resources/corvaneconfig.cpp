// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/corvaneconfig.h>

namespace orrin {

CorvaneConfig::CorvaneConfig() = default;
CorvaneConfig::~CorvaneConfig() = default;

} // namespace orrin
