// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace orrin::demo {

struct RecorderInfo;

/*! What a recorder tells of itself in the form of ONVIF scopes: its name, its model, its kind. */
QStringList scopesOf(const RecorderInfo &recorder);

} // namespace orrin::demo
