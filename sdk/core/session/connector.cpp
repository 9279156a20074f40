// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/connector.h"

namespace orrin {

Connector::~Connector() = default;

} // namespace orrin
