// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/displayoutput.h>

#include <utility>

namespace orrin {

DisplayOutput::DisplayOutput(std::shared_ptr<StreamPresenterInterface> presenter) : m_presenter(std::move(presenter)) {}
DisplayOutput::~DisplayOutput() = default;

void DisplayOutput::setVideoFrame(const VideoFrame &frame)
{
    if (!m_presenter)
        return;
    for (const auto &display : m_presenter->displays())
        display->setVideoFrame(frame);
}

void DisplayOutput::setDelay(long long delayMs)
{
    if (!m_presenter)
        return;
    for (const auto &display : m_presenter->displays())
        display->setDelay(delayMs);
}

void DisplayOutput::setError(const PlaybackError &error, int mark)
{
    if (!m_presenter)
        return;
    for (const auto &display : m_presenter->displays())
        display->setError(error, mark);
}

// A display in general has no busy state; outputs over displays that have one override this.
void DisplayOutput::setBusy(bool) {}

} // namespace orrin
