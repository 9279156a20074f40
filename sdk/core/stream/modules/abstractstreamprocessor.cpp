// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/abstractstreamprocessor.h>

namespace orrin {

AbstractStreamProcessor::AbstractStreamProcessor(QObject *parent) : QObject(parent) {}
AbstractStreamProcessor::~AbstractStreamProcessor() = default;

} // namespace orrin
