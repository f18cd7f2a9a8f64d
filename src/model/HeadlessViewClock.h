// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scene/SCNSceneRenderer.h"

#include <memory>

namespace zelvo::core {

/// Keeps a view without a picture going: the scene it shows is animated with every tick of the
/// model's clock. A view on screen has its own clock and needs none. Between runs a headless scene
/// stands still.
class HeadlessViewClock {
public:
    explicit HeadlessViewClock(scene::SCNSceneRenderer& view);

private:
    std::shared_ptr<const bool> subscription = std::make_shared<const bool>(true);
};

} // namespace zelvo::core
