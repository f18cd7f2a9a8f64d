// SPDX-License-Identifier: MIT
#pragma once

#include "platform/geometry/Mesh.h"
#include "platform/scene/SCNNode.h"

#include <glm/mat3x3.hpp>
#include <glm/mat4x4.hpp>

#include <array>

namespace zelvo::render {

/// From where a picture is drawn. Clip space has depth 1 at the near plane and 0 at the far one, so
/// that floating-point depth keeps its precision far away.
struct CameraView {
    glm::mat4 view{1};
    glm::mat4 projection{1};
    glm::mat4 viewProjection{1};
    glm::vec3 position{0};
    glm::mat3 axes{1}; ///< right, up, backwards in the world
};

/// The view of a camera that stands at a node (a scale of the node has no effect). aspect is width
/// over height.
[[nodiscard]] CameraView
makeCameraView(const glm::mat4& nodeToWorld, const scene::SCNCamera& camera, float aspect);

/// Field of view in radians, vertical.
[[nodiscard]] glm::mat4
reversedPerspective(float fieldOfView, float aspect, float zNear, float zFar);
/// A box in front of the eye: half its width and height around the axis.
[[nodiscard]] glm::mat4
reversedOrthographic(float halfWidth, float halfHeight, float zNear, float zFar);

/// Six planes with their normals inwards.
class Frustum {
public:
    explicit Frustum(const glm::mat4& viewProjection);

    /// False only if no point of the box (given in a space that `toWorld` leads out of) can be
    /// seen.
    [[nodiscard]] bool mayContain(const geometry::Box& box, const glm::mat4& toWorld) const;

private:
    std::array<glm::vec4, 6> planes{};
};

} // namespace zelvo::render
