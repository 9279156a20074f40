// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/orrinsdkqmlglobal.h"

#include <contract/codecs/videoframe.h>
#include <contract/core/mask.h>

#include <QObject>

#include <memory>

namespace orrin {

/*! Keeps the newest frame of one display.

    setVideoFrame() runs on the thread that drives the display, everything else on the main thread; there is no lock. */
class ORRINSDKQML_EXPORT QmlAbstractFrameReceiver : public QObject
{
    Q_OBJECT
public:
    QmlAbstractFrameReceiver();
    ~QmlAbstractFrameReceiver() override;

    /*! The frame kept last; invalid before the first one. The reference holds until the next frame. */
    virtual const VideoFrame &currentFrame() const;
    virtual void setVideoFrame(const VideoFrame &videoFrame) = 0;

    /*! Paints the privacy mask that travels with the frame. A mask stays in force, for frames without one too, until a
        different one arrives. */
    void applyPrivacyMaskToCurrentFrame();

Q_SIGNALS:
    void frameChanged();

protected:
    std::unique_ptr<Mask> mask; // null until a frame carries one
    VideoFrame frame;
};

} // namespace orrin
