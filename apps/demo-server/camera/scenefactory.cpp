// SPDX-License-Identifier: GPL-3.0-or-later
#include "camera/scenefactory.h"

#include "camera/scenes/carparkscene.h"
#include "camera/scenes/harbourscene.h"
#include "camera/scenes/lobbyscene.h"
#include "camera/scenes/platformscene.h"
#include "camera/scenes/roadscene.h"
#include "camera/scenes/yardscene.h"

namespace orrin::demo {

std::unique_ptr<Scene> makeScene(SceneKind kind, int variant)
{
    switch (kind) {
    case SceneKind::Road:
        return std::make_unique<RoadScene>(variant);
    case SceneKind::Yard:
        return std::make_unique<YardScene>(variant);
    case SceneKind::CarPark:
        return std::make_unique<CarParkScene>(variant);
    case SceneKind::Lobby:
        return std::make_unique<LobbyScene>(variant);
    case SceneKind::Harbour:
        return std::make_unique<HarbourScene>(variant);
    case SceneKind::Platform:
        break;
    }
    return std::make_unique<PlatformScene>(variant);
}

} // namespace orrin::demo
