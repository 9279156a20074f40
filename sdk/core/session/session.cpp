// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/session.h"

namespace orrin {

Session::Session(QObject *parent) : QObject(parent) {}

Session::~Session() = default;

} // namespace orrin
