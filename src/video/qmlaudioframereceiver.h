// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "video/qmlabstractframereceiver.h"

namespace orrin {

/*! Keeps sound, decoded where that is needed. A frame of another kind changes nothing and signals all the same. */
class ORRINSDKQML_EXPORT QmlAudioFrameReceiver : public QmlAbstractFrameReceiver
{
    Q_OBJECT
public:
    QmlAudioFrameReceiver();
    ~QmlAudioFrameReceiver() override;

    void setVideoFrame(const VideoFrame &videoFrame) override;
};

} // namespace orrin
