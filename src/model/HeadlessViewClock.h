// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Lifetime.h"
#include "platform/scene/SCNSceneRenderer.h"

namespace zelvo::model {

/// Drives a view that shows no pictures: it animates the view's scene with every tick of the
/// model's clock. Between runs the scene does not advance. A view on screen has its own clock and
/// does not need it.
class HeadlessViewClock {
public:
    explicit HeadlessViewClock(scene::SCNSceneRenderer& view);

private:
    foundation::Lifetime lifetime;
};

} // namespace zelvo::model
