// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/loginerror.h>
#include <contract/core/server.h>

#include <QMetaType>

namespace orrin {

namespace {

// By name, so that both can pass through queued connections from the moment the library is loaded.
[[maybe_unused]] const int loginErrorType = qRegisterMetaType<LoginError>("orrin::LoginError");
[[maybe_unused]] const int serverType = qRegisterMetaType<Server *>("orrin::Server*");

} // namespace

} // namespace orrin
