// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/displayfactory.h>

namespace orrin {

DisplayFactory::DisplayFactory(QObject *parent) : QObject(parent) {}
DisplayFactory::~DisplayFactory() = default;

} // namespace orrin
