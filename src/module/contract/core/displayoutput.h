// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/spabstractoutput.h>
#include <contract/core/streampresenterinterface.h>

#include <memory>

namespace orrin {

/*! The output that shows frames on the displays of a presenter. */
class ORRINSDK_CORE_EXPORT DisplayOutput : public SPAbstractOutput
{
public:
    explicit DisplayOutput(std::shared_ptr<StreamPresenterInterface> presenter);
    ~DisplayOutput() override;

    std::shared_ptr<StreamPresenterInterface> presenter() const { return m_presenter; }

    void setVideoFrame(const VideoFrame &frame) override;
    void setDelay(long long delayMs) override;
    void setError(const PlaybackError &error, int mark) override;
    void setBusy(bool busy) override;

private:
    std::shared_ptr<StreamPresenterInterface> m_presenter;
};

} // namespace orrin
