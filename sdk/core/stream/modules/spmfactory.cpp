// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/spmfactory.h>

namespace orrin {

SPMFactory::~SPMFactory() = default;

} // namespace orrin
