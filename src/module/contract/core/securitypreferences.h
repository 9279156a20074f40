// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/abstractpreferencegroup.h>

namespace orrin {

/*! Options of trust. */
class ORRINSDK_CORE_EXPORT SecurityPreferences : public AbstractPreferenceGroup
{
    Q_OBJECT
public:
    static const QString NAME;
    /*! Bool, true at first: a server's public key is pinned at the first login, and a changed key stops a login. */
    static const QString PUBLIC_KEY_CHECK;

    SecurityPreferences();
};

} // namespace orrin
