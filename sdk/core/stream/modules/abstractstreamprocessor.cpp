// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/modules/streamregistry.h"

#include <contract/core/abstractstreamprocessor.h>

namespace orrin {

AbstractStreamProcessor::AbstractStreamProcessor(QObject *parent) : QObject(parent)
{
    StreamRegistry::instance().add(this);
}

AbstractStreamProcessor::~AbstractStreamProcessor()
{
    StreamRegistry::instance().remove(this);
}

} // namespace orrin
