// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace orrin {

/*! A right. */
class SSPermission
{
public:
    enum Value : int {
        PlayBack = 16,        //!< see recorded video
        Ptzf = 17,            //!< steer cameras
        SeeBehindMasks = 24,  //!< privacy masks are not painted for this user
    };

    constexpr explicit SSPermission(int value) : m_value(value) {}
    constexpr int value() const { return m_value; }

    friend bool operator==(SSPermission, SSPermission) = default;

private:
    int m_value;
};

} // namespace orrin
