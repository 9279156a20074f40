// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "video/qmlplaybackcontrollerinterface_p.h"

#include <QPointer>

namespace orrin {

class QmlRendering;
class QmlVideoPlaybackController;

class QmlVideoPlaybackControllerPrivate : public QmlPlaybackControllerInterfacePrivate
{
public:
    using QmlPlaybackControllerInterfacePrivate::QmlPlaybackControllerInterfacePrivate;

    /*! What the stream shows, or null; looked up anew each time. */
    QPointer<QmlRendering> findRendering() const;

    QPointer<QmlVideoPlaybackController> q;
    bool textOverlay = true;
    bool highStream = true;
};

} // namespace orrin
