// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "video/qmlstreamprovider.h"

namespace orrin {

class QmlAudioProviderPrivate
{
public:
    QmlStreamProvider provider;
};

} // namespace orrin
