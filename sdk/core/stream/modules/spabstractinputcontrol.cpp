// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/spabstractinputcontrol.h>

namespace orrin {

SPAbstractInputControl::SPAbstractInputControl(QObject *parent) : QObject(parent) {}
SPAbstractInputControl::~SPAbstractInputControl() = default;

} // namespace orrin
