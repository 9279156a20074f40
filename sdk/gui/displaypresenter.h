// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/streampresenterinterface.h>

#include <utility>

namespace orrin {

/*! Holds the displays of one stream, fixed for its life; so it is read on any thread without a lock. */
class DisplayPresenter : public StreamPresenterInterface
{
public:
    explicit DisplayPresenter(QList<std::shared_ptr<DisplayInterface>> displays) : m_displays(std::move(displays)) {}

    QList<std::shared_ptr<DisplayInterface>> displays() const override { return m_displays; }

private:
    const QList<std::shared_ptr<DisplayInterface>> m_displays;
};

} // namespace orrin
