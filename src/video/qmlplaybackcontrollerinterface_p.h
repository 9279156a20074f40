// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/abstractstreamprocessor.h>
#include <contract/core/spabstractinputcontrol.h>
#include <contract/util/requestid.h>

#include <QPointer>

namespace orrin {

class QmlAbstractStreamProvider;

class QmlPlaybackControllerInterfacePrivate
{
public:
    explicit QmlPlaybackControllerInterfacePrivate(QmlAbstractStreamProvider *provider) : provider(provider) {}

    /*! The stream of the four keys, or null; kept until a key changes or the stream ends. */
    AbstractStreamProcessor *findStreamProcessor();
    /*! Its input control, or null. */
    QPointer<SPAbstractInputControl> inputControl();
    /*! Tells the stream the speed. */
    void applySpeed();

    QPointer<AbstractStreamProcessor> streamProcessor; // found before
    QmlAbstractStreamProvider *provider;
    int serverGroupId = -1;
    int serverId = -1;
    int channelId = -1;
    RequestId streamId;
    double speed = 1.0;
    int year = -1;
    int month = -1;
    int day = -1;
    int hour = -1;
    int minute = -1;
    int second = -1;
    int millisecond = -1;
};

} // namespace orrin
