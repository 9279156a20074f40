// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace orrin {

/*! Where a host wants short notices shown over the picture; may be absent. Called on the main thread. */
class OsdNotificationInterface
{
public:
    virtual ~OsdNotificationInterface() = default;
    virtual void showNotification(const QString &text) = 0;
};

} // namespace orrin
