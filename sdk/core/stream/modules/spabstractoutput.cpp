// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/spabstractoutput.h>

namespace orrin {

SPAbstractOutput::~SPAbstractOutput() = default;

void SPAbstractOutput::close() {}

} // namespace orrin
