// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace orrin {

/*! Prepares logging: a message log of 500 lines, and files of at most 30 MiB in logDir().

    Nothing in the module calls this; logging belongs to the host. Main thread, once. */
void setUpLogging();

} // namespace orrin
