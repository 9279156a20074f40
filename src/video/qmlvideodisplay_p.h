// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "video/framegrabber_p.h"

#include <contract/codecs/videoframe.h>
#include <contract/core/trackbounds.h>
#include <contract/util/displaygeometry.h>

#include <memory>

namespace orrin {

class QmlVideoDisplay;

class QmlVideoDisplayPrivate : public FrameGrabberPrivate
{
public:
    QmlVideoDisplayPrivate(QmlVideoDisplay *display, QmlAbstractStreamProvider *provider);
    ~QmlVideoDisplayPrivate() override;

    void streamProcessorCreated() override;
    void serverGroupIdChanged() override;
    void serverIdChanged() override;
    void channelIdChanged() override;

    QSharedPointer<TrackBounds> trackBounds() const;

    QmlVideoDisplay *display; // the grabber's q, as the item that it is
    std::shared_ptr<VideoFrame> currentFrame;
    double frameWidth = 100.0;
    double frameHeight = 100.0;
    DisplayGeometry geometry;
    bool messageVisible = false;
    bool busySpinnerVisible = false;
};

} // namespace orrin
