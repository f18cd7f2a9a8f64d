// SPDX-License-Identifier: MIT
#pragma once

#include "platform/geometry/BezierPath.h"

#include <glm/vec2.hpp>

#include <cstdint>
#include <vector>

namespace zelvo::geometry {

/// Outlines have integer coordinates, so that unions and nearest-piece maps are exact.
using GridPoint = glm::ivec2;
constexpr double kGridSteps = 1024; ///< grid steps per scene unit

using GridLoop = std::vector<GridPoint>;

/// A corner of the outline. The piece of boundary that starts here has the same index.
struct OutlineCorner {
    GridPoint grid{};
    glm::dvec2 position{};  ///< scene units
    glm::dvec2 direction{}; ///< unit vector, of the piece that starts here
    double length = 0;      ///< of the piece that starts here
    double arc = 0;         ///< length of the loop from its first corner to here
    std::uint32_t next = 0; ///< neighbours in the loop
    std::uint32_t previous = 0;
    glm::dvec2 normal{};   ///< if smooth: unit normal of the boundary, outwards
    bool isSmooth = false; ///< the joint is part of a curve
    /// radians, positive to the left; positive means that the solid's corner points outwards
    double turn = 0;
};

/// The union of a path's contours (non-zero) as simple loops with the inside on their left:
/// counter-clockwise outside, clockwise around holes. No corner touches another corner or piece. A
/// path that would take too long (Tangle.h) has no loops.
struct Outline {
    struct Loop {
        std::uint32_t first = 0;
        std::uint32_t count = 0;
    };

    std::vector<OutlineCorner> corners;
    std::vector<Loop> loops;
};

[[nodiscard]] Outline makeOutline(const BezierPath& path, double flatness);

/// The outward normal of the piece that starts at a corner.
[[nodiscard]] inline glm::dvec2 outwardNormal(const OutlineCorner& corner) {
    return {corner.direction.y, -corner.direction.x};
}

} // namespace zelvo::geometry
