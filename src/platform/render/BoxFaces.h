// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/Snapshot.h"

#include <array>
#include <cstddef>

namespace zelvo::render {

using Corners = std::array<glm::vec3, 8>;

/// Of a box, in the world.
[[nodiscard]] Corners cornersOf(const geometry::Box& box, const glm::mat4& world);

/// Of a node's bounding box, in the world.
[[nodiscard]] Corners cornersOf(const VisibleNode& node);

/// The box's faces: indices into Corners, in order around the face.
// clang-format off
inline constexpr auto kBoxFaces = std::to_array<std::array<std::size_t, 4>>({
    {0, 1, 3, 2},
    {4, 5, 7, 6},
    {0, 1, 5, 4},
    {2, 3, 7, 6},
    {0, 2, 6, 4},
    {1, 3, 7, 5}
});

// clang-format on

/// The plane of the box's side on which an element lies (MeshElement::facing); unit normal outwards.
/// Not numbers if the node has no size.
[[nodiscard]] glm::vec4 sideOf(const VisibleNode& node, const geometry::MeshElement& element);

/// A convex face cut by planes. Each cut adds at most one corner.
struct Polygon {
    std::array<glm::vec3, 16> points{};
    std::size_t count = 0;

    void add(const glm::vec3& point) { points.at(count++) = point; }
};

[[nodiscard]] Polygon polygonOf(const Corners& corners, const std::array<std::size_t, 4>& face);

/// The part in front of the plane (Sutherland and Hodgman 1974, "Reentrant Polygon Clipping").
[[nodiscard]] Polygon clipped(const Polygon& polygon, const glm::vec4& plane);

} // namespace zelvo::render
