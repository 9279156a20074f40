// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/camera.h>

#include "core/resources/channel_p.h"

namespace orrin {

Camera::Camera(std::unique_ptr<ChannelPrivate> d, QObject *parent) : Channel(std::move(d), parent) {}

Camera::~Camera() = default;

int Camera::ptzf() const
{
    return d_func()->description.ptzf;
}

} // namespace orrin
