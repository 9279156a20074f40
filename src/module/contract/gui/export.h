// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtCore/qglobal.h>

#if defined(ORRINSDK_GUI_LIBRARY)
#define ORRINSDK_GUI_EXPORT Q_DECL_EXPORT
#else
#define ORRINSDK_GUI_EXPORT Q_DECL_IMPORT
#endif
