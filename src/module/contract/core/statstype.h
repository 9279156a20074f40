// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace orrin {

/*! What a value of the statistics is. The status types are codes or letters, all others plain numbers. */
enum class StatsType : int {
    FLOAT = 0,
    INTEGER = 1, //!< a count
    ENUM_SYSTEM_STATUS = 2, //!< a code of the recorder's state
    ENUM_DISK_STATUS = 3,   //!< a letter
    ENUM_CAMERA_STATUS = 4, //!< a code of the camera's state
};

} // namespace orrin
