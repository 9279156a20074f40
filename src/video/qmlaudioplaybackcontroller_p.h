// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "video/qmlplaybackcontrollerinterface_p.h"

namespace orrin {

class QmlAudioPlaybackControllerPrivate : public QmlPlaybackControllerInterfacePrivate
{
public:
    using QmlPlaybackControllerInterfacePrivate::QmlPlaybackControllerInterfacePrivate;
};

} // namespace orrin
