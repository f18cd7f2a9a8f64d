// SPDX-License-Identifier: MIT
#pragma once

#include "platform/usd/Stage.h"

#include <glm/mat4x4.hpp>

namespace zelvo::usd {

/// Where a prim stands in its parent.
struct LocalTransform {
    glm::dmat4 matrix{1};
    bool ignoresParent = false; ///< it stands in the scene
};

[[nodiscard]] LocalTransform localTransformOf(const Prim& prim);

} // namespace zelvo::usd
