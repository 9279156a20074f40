// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/displayoutput.h>
#include <contract/gui/display.h>

#include <vector>

namespace orrin {

/*! A DisplayOutput that also passes the busy state to those displays that are Display objects. */
class GuiDisplayOutput : public DisplayOutput
{
public:
    explicit GuiDisplayOutput(std::shared_ptr<StreamPresenterInterface> presenter);
    ~GuiDisplayOutput() override;

    void setBusy(bool busy) override;
    /*! Takes the renderers off the displays. */
    void close() override;

private:
    std::vector<Display *> m_displays; // owned by the presenter
};

} // namespace orrin
