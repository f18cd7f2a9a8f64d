// SPDX-License-Identifier: MIT
#pragma once

#include "platform/geometry/Ray.h"
#include "platform/scene/SCNNode.h"

#include <cstddef>
#include <optional>

namespace zelvo::scene {

/// The nearest thing on a ray.
struct SCNHitTestResult {
    SCNNodePtr node;
    float distance = 0;      ///< in lengths of the ray's direction
    std::size_t element = 0; ///< of the node's geometry
    glm::vec2 textureCoordinates{0};
};

/// Finds what of a tree can be seen along a ray. The ray is in world space if `parentToWorld` is
/// the root's parent's transform to it. Exact on the triangles. Passes over hidden nodes, over what is (nearly) transparent at that
/// place, and over the back of what is drawn from one side only. Nothing: the ray meets none of it.
///
/// The first call after a change of a geometry builds its tree of boxes (SCNGeometry::triangles).
[[nodiscard]] std::optional<SCNHitTestResult>
hitTest(SCNNode& root, const geometry::Ray& ray, const glm::mat4& parentToWorld = glm::mat4(1));

} // namespace zelvo::scene
