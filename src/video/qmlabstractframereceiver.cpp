// SPDX-License-Identifier: GPL-3.0-or-later
#include "video/qmlabstractframereceiver.h"

namespace orrin {

QmlAbstractFrameReceiver::QmlAbstractFrameReceiver() = default;
QmlAbstractFrameReceiver::~QmlAbstractFrameReceiver() = default;

const VideoFrame &QmlAbstractFrameReceiver::currentFrame() const
{
    return frame;
}

void QmlAbstractFrameReceiver::applyPrivacyMaskToCurrentFrame()
{
    const QByteArray &extension = frame.imageRef().extension(ImageHeaderExtension::PrivacyMask);
    if (!extension.isEmpty()) {
        const QString encoded = QString::fromUtf8(extension);
        if (!mask || mask->encodedMaskString() != encoded)
            mask = std::make_unique<Mask>(encoded, MaskType::Privacy);
    }
    if (mask)
        mask->applyMaskToVideoFrame(frame);
}

} // namespace orrin
