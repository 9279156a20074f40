// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/displayinterface.h>

#include <QList>

#include <memory>

namespace orrin {

/*! Holds the displays of one stream. */
class StreamPresenterInterface
{
public:
    virtual ~StreamPresenterInterface() = default;
    virtual QList<std::shared_ptr<DisplayInterface>> displays() const = 0;
};

} // namespace orrin
