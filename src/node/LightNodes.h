// SPDX-License-Identifier: MIT
#pragma once

#include "node/DefaultSCNNode.h"

namespace zelvo::core {

/// The two kinds of light the program adds by hand.
struct LightNodes {
    /// A cone of 60 degrees on the content, bright enough for some hundred units.
    [[nodiscard]] static DefaultSCNNodePtr spotLight();
    /// A lamp of the stage, which leaves the content alone.
    [[nodiscard]] static DefaultSCNNodePtr
    omniLight(const image::Color& color, const glm::vec3& position);
};

} // namespace zelvo::core
