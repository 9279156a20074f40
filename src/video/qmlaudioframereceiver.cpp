// SPDX-License-Identifier: GPL-3.0-or-later
#include "video/qmlaudioframereceiver.h"

#include <contract/util/audioutils.h>

namespace orrin {

QmlAudioFrameReceiver::QmlAudioFrameReceiver() = default;
QmlAudioFrameReceiver::~QmlAudioFrameReceiver() = default;

void QmlAudioFrameReceiver::setVideoFrame(const VideoFrame &videoFrame)
{
    switch (static_cast<ImageKind>(videoFrame.imageRef().flags() & 0x0F)) {
    case ImageKind::AudioPcm16:
    case ImageKind::AudioFloat:
        frame = videoFrame;
        break;
    case ImageKind::AudioULaw:
    case ImageKind::AudioALaw:
        frame = VideoFrame(AudioUtils::decode(videoFrame.imageRef()));
        break;
    default:
        break;
    }
    // Also for a frame that was not taken: listeners count the frames that arrive.
    Q_EMIT frameChanged();
}

} // namespace orrin
