// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/guidisplayoutput.h"

#include <utility>

namespace orrin {

GuiDisplayOutput::GuiDisplayOutput(std::shared_ptr<StreamPresenterInterface> presenter)
    : DisplayOutput(std::move(presenter))
{
    if (!this->presenter())
        return;
    const auto displays = this->presenter()->displays();
    for (const auto &display : displays) {
        if (auto *known = dynamic_cast<Display *>(display.get()))
            m_displays.push_back(known);
    }
}

GuiDisplayOutput::~GuiDisplayOutput() = default;

void GuiDisplayOutput::setBusy(bool busy)
{
    for (Display *display : m_displays)
        display->setBusy(busy);
}

void GuiDisplayOutput::close()
{
    for (Display *display : m_displays)
        display->setRenderer({});
}

} // namespace orrin
