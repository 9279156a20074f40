// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "camera/scene.h"

namespace orrin::demo {

/*! The kinds of scene that there are. */
enum class SceneKind { Road, Yard, CarPark, Lobby, Harbour, Platform };

/*! A scene of \a kind. \a variant changes colours and the rhythm of what moves, so that two cameras never
 * look alike. */
std::unique_ptr<Scene> makeScene(SceneKind kind, int variant);

} // namespace orrin::demo
