// SPDX-License-Identifier: GPL-3.0-or-later
#include "video/qmlaudioplaybackcontroller.h"

#include "video/qmlaudioplaybackcontroller_p.h"
#include "video/qmlaudioprovider.h"

namespace orrin {

QmlAudioPlaybackController::QmlAudioPlaybackController(QObject *parent)
    : QmlPlaybackControllerInterface(
          PrivatePointer(new QmlAudioPlaybackControllerPrivate(&QmlAudioProvider::instance()),
                         [](QmlPlaybackControllerInterfacePrivate *d) {
                             delete static_cast<QmlAudioPlaybackControllerPrivate *>(d);
                         }),
          parent)
{
}

QmlAudioPlaybackController::~QmlAudioPlaybackController() = default;

} // namespace orrin
