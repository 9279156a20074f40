// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/channel.h>

namespace orrin {

/*! A channel with a picture. */
class ORRINSDK_CORE_EXPORT Camera : public Channel
{
    Q_OBJECT
public:
    explicit Camera(std::unique_ptr<ChannelPrivate> d, QObject *parent = nullptr);
    ~Camera() override;

    /*! Non-zero when the camera can pan, tilt, zoom or focus. */
    int ptzf() const;
};

} // namespace orrin
