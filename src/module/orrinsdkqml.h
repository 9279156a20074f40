// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/orrinsdkqmlglobal.h"

class QQmlContext;

namespace orrin {

/*! Prepares \a context, the root context of the QML to be loaded, for the module.

    Creates the root object of the core library if the host has not done so (a host that called OrrinSDK::initInstance() keeps
    its own names), adds the preference groups of events and security, and sets the context properties `OrrinSDK` and
    `liveEventModel`. Main thread; call it once, after the application object exists and before components are loaded: a second
    call adds the groups again. \a context is borrowed for the call; what it is given lives as long as the root object. */
ORRINSDKQML_EXPORT void initQmlContext(QQmlContext *context);

} // namespace orrin
