// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/util/export.h>

#include <QString>

namespace orrin {

/*! The directory for log files of this application: made when it is missing, empty when that fails. Depends on the
    organisation and application names, so ask after the root object exists. Safe from any thread. */
ORRINSDK_UTIL_EXPORT QString logDir();

} // namespace orrin
