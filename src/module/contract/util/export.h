// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtCore/qglobal.h>

#if defined(ORRINSDK_UTIL_LIBRARY)
#define ORRINSDK_UTIL_EXPORT Q_DECL_EXPORT
#else
#define ORRINSDK_UTIL_EXPORT Q_DECL_IMPORT
#endif
