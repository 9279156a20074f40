// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace orrin {

/*! The path of an INI file of the core: it lies beside the application's own settings, with \a part in its
 * name. */
QString settingsFilePath(const QString &part);

} // namespace orrin
