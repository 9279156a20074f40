// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>
#include <contract/core/userconfighelper.h>

#include <memory>

namespace orrin {

/*! A server's configuration as far as the session knows it. Main thread. */
class ORRINSDK_CORE_EXPORT CorvaneConfig
{
public:
    CorvaneConfig();
    ~CorvaneConfig();

    /*! May hold null: nothing is known of users' restrictions, so nobody is restricted. */
    std::unique_ptr<UserConfigHelper> &userConfigHelper() { return m_userConfigHelper; }

private:
    std::unique_ptr<UserConfigHelper> m_userConfigHelper;
};

} // namespace orrin
