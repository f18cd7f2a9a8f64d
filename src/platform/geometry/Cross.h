// SPDX-License-Identifier: MIT
#pragma once

#include <glm/vec2.hpp>

namespace zelvo::geometry {

/// The area of the parallelogram of two vectors; positive if `b` is to the left of `a`.
[[nodiscard]] inline double cross(const glm::dvec2& a, const glm::dvec2& b) {
    return a.x * b.y - a.y * b.x;
}

} // namespace zelvo::geometry
