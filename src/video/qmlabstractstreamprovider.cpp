// SPDX-License-Identifier: GPL-3.0-or-later
#include "video/qmlabstractstreamprovider.h"

namespace orrin {

QmlAbstractStreamProvider::~QmlAbstractStreamProvider() = default;

} // namespace orrin
