// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/audiooutput.h"

#include <contract/codecs/videoframe.h>
#include <contract/core/playbackerror.h>
#include <contract/util/audioutils.h>

#include <utility>

namespace orrin {

void AudioOutput::setVideoFrame(const VideoFrame &frame)
{
    if (frame.isValidImage())
        return;
    std::shared_ptr<AudioPlayer> player;
    {
        const std::lock_guard lock(m_mutex);
        player = m_player;
    }
    if (player)
        player->push(AudioUtils::decode(frame.imageRef()));
}

void AudioOutput::setError(const PlaybackError &error, int mark)
{
    Q_UNUSED(error)
    Q_UNUSED(mark)
}

void AudioOutput::close()
{
    const std::lock_guard lock(m_mutex);
    m_player.reset();
}

} // namespace orrin
