// SPDX-License-Identifier: MIT
#pragma once

#include <glm/common.hpp>
#include <glm/geometric.hpp>
#include <glm/vec2.hpp>
#include <glm/vec3.hpp>

#include <cmath>

// The unit sphere unfolded to a square (Cigolle et al. 2014, "A Survey of Efficient Representations
// for Independent Unit Vectors"). +y is in the middle, -y at all four corners; x grows with the
// columns and z with the rows.

namespace zelvo::image {

/// The place of a direction (any length); both coordinates 0 to 1.
[[nodiscard]] inline glm::vec2 octahedralFromDirection(const glm::vec3& direction) {
    const glm::vec3 size = glm::abs(direction);
    const glm::vec3 d = direction / (size.x + size.y + size.z);
    glm::vec2 folded{d.x, d.z};
    if (d.y < 0) {
        folded = {std::copysign(1 - std::abs(d.z), d.x), std::copysign(1 - std::abs(d.x), d.z)};
    }
    return folded * 0.5f + 0.5f;
}

/// The point of the octahedron |x| + |y| + |z| = 1 at coordinates from 0 to 1. As a direction it is
/// not of unit length.
[[nodiscard]] inline glm::vec3 octahedronPoint(const glm::vec2& coordinates) {
    const glm::vec2 p = coordinates * 2.0f - 1.0f;
    const float y = 1 - std::abs(p.x) - std::abs(p.y);
    if (y >= 0)
        return {p.x, y, p.y};
    return {std::copysign(1 - std::abs(p.y), p.x), y, std::copysign(1 - std::abs(p.x), p.y)};
}

/// The unit direction at coordinates from 0 to 1.
[[nodiscard]] inline glm::vec3 directionFromOctahedral(const glm::vec2& coordinates) {
    return glm::normalize(octahedronPoint(coordinates));
}

} // namespace zelvo::image
