// SPDX-License-Identifier: MIT
#pragma once

#include "node/DefaultSCNNode.h"

namespace zelvo::node {

/// The two kinds of light that the program adds by code.
struct LightNodes {
    /// A spot with a cone of 60 degrees for the content, bright enough for some hundred units.
    [[nodiscard]] static DefaultSCNNodePtr spotLight();
    /// A lamp of the stage that does not light the content.
    [[nodiscard]] static DefaultSCNNodePtr
    omniLight(const image::Color& color, const glm::vec3& position);
};

} // namespace zelvo::node
