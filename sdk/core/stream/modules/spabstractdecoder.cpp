// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/spabstractdecoder.h>

namespace orrin {

SPAbstractDecoder::~SPAbstractDecoder() = default;

} // namespace orrin
