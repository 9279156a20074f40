// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace orrin {

class QmlServerGroupPrivate
{
public:
    int serverGroupId = -1;
};

} // namespace orrin
