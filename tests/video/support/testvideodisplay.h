// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "video/qmlvideodisplay.h"

#include "support/fakestreamprovider.h"

namespace orrin {

/*! A video item whose streams are fakes. */
class TestVideoDisplay : public QmlVideoDisplay
{
public:
    explicit TestVideoDisplay(FakeStreamProvider *provider, QQuickItem *parent = nullptr)
        : QmlVideoDisplay(provider, parent)
    {
    }

    void setAddress(int group, int server, int channel)
    {
        setServerGroupId(group);
        setServerId(server);
        setChannelId(channel);
    }
};

} // namespace orrin
