// SPDX-License-Identifier: GPL-3.0-or-later
#include "video/qmlvideoframereceiver.h"

namespace orrin {

QmlVideoFrameReceiver::QmlVideoFrameReceiver() = default;
QmlVideoFrameReceiver::~QmlVideoFrameReceiver() = default;

void QmlVideoFrameReceiver::setVideoFrame(const VideoFrame &videoFrame)
{
    if (!videoFrame.isValid())
        return;
    frame = videoFrame;
    Q_EMIT frameChanged();
}

} // namespace orrin
