// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtCore/qglobal.h>

#if defined(ORRINSDKQML_LIBRARY)
#define ORRINSDKQML_EXPORT Q_DECL_EXPORT
#else
#define ORRINSDKQML_EXPORT Q_DECL_IMPORT
#endif
