// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "video/qmlplaybackcontrollerinterface.h"

#include <QtQml/qqmlregistration.h>

namespace orrin {

/*! The remote control of a stream of sound. Main thread. */
class ORRINSDKQML_EXPORT QmlAudioPlaybackController : public QmlPlaybackControllerInterface
{
    Q_OBJECT
    QML_NAMED_ELEMENT(AudioPlaybackController)

public:
    explicit QmlAudioPlaybackController(QObject *parent = nullptr);
    ~QmlAudioPlaybackController() override;
};

} // namespace orrin
