// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "gui/audioplayer.h"

#include <contract/core/spabstractoutput.h>

#include <memory>
#include <mutex>

namespace orrin {

/*! The output that makes a stream's sound heard. Pictures, errors and busy states are none of its business. */
class ORRINSDK_GUI_EXPORT AudioOutput : public SPAbstractOutput
{
public:
    explicit AudioOutput(std::shared_ptr<AudioPlayer> player) : m_player(std::move(player)) {}

    void setVideoFrame(const VideoFrame &frame) override;
    void setDelay(long long delayMs) override { Q_UNUSED(delayMs) }
    void setError(const PlaybackError &error, int mark) override;
    void setBusy(bool busy) override { Q_UNUSED(busy) }
    /*! Silent from now on. */
    void close() override;

private:
    std::mutex m_mutex;
    std::shared_ptr<AudioPlayer> m_player; // guarded by m_mutex
};

} // namespace orrin
