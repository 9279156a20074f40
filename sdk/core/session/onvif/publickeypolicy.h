// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace orrin {

/*! Whether public keys are pinned and compared: SecurityPreferences::PUBLIC_KEY_CHECK, true where the
 * application has no such option. Main thread. */
bool isPublicKeyCheckOn();

} // namespace orrin
