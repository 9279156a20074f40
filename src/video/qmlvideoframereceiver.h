// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "video/qmlabstractframereceiver.h"

namespace orrin {

/*! Keeps pictures. An invalid frame is dropped without a signal. */
class ORRINSDKQML_EXPORT QmlVideoFrameReceiver : public QmlAbstractFrameReceiver
{
    Q_OBJECT
public:
    QmlVideoFrameReceiver();
    ~QmlVideoFrameReceiver() override;

    void setVideoFrame(const VideoFrame &videoFrame) override;
};

} // namespace orrin
