// SPDX-License-Identifier: MIT
#pragma once

#include "platform/geometry/Mesh.h"
#include "platform/geometry/Ray.h"
#include "platform/scene/SCNNode.h"

#include <glm/mat3x3.hpp>
#include <glm/mat4x4.hpp>

#include <array>

namespace zelvo::render {

/// The matrices of a camera. Clip space has depth 1 at the near plane and 0 at the far plane,
/// because floating-point depth is then precise far away, too.
struct CameraView {
    glm::mat4 view{1};
    glm::mat4 projection{1};
    glm::mat4 viewProjection{1};
    glm::vec3 position{0};
    glm::mat3 axes{1}; ///< right, up, backwards, in world space
};

/// The view of a camera at a node. The node's scale is ignored. `aspect` is width over height.
[[nodiscard]] CameraView
makeCameraView(const glm::mat4& nodeToWorld, const scene::SCNCamera& camera, float aspect);

/// What a level mirror at this height shows: the picture of an eye as far below as the camera is
/// above. The near plane is the mirror, so that nothing below it is seen. Faces turn the other way
/// round; the axes stay those of the camera.
[[nodiscard]] CameraView mirrored(const CameraView& camera, float height);

/// From the eye through a point of the picture: -1 to 1, x to the right, y up. The direction has
/// length 1.
[[nodiscard]] geometry::Ray rayThrough(const CameraView& camera, const glm::vec2& point);

/// `fieldOfView` is vertical, in radians.
[[nodiscard]] glm::mat4
reversedPerspective(float fieldOfView, float aspect, float zNear, float zFar);
/// Shows a box in front of the eye, `2 * halfWidth` wide and `2 * halfHeight` high.
[[nodiscard]] glm::mat4
reversedOrthographic(float halfWidth, float halfHeight, float zNear, float zFar);

/// The six planes around what a camera sees; normals point inwards.
class Frustum {
public:
    explicit Frustum(const glm::mat4& viewProjection);

    /// False only if the box cannot be seen. `toWorld` is the transform from the box's space.
    [[nodiscard]] bool mayContain(const geometry::Box& box, const glm::mat4& toWorld) const;

private:
    std::array<glm::vec4, 6> planes{};
};

} // namespace zelvo::render
