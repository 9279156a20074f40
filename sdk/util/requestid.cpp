// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/util/requestid.h>

namespace orrin {

// Registered by name too, so that QML finds the type of properties that hold it.
static const int requestIdType = qRegisterMetaType<RequestId>("orrin::RequestId");

} // namespace orrin
