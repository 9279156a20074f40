// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace orrin {

/*! What a value of the statistics is. */
enum class StatsType : int {
    Text = 0,
    Number = 1,
    SystemStatus = 2,
    DiskStatus = 3,
    CameraStatus = 4,
};

} // namespace orrin
