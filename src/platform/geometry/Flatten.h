// SPDX-License-Identifier: MIT
#pragma once

#include "platform/geometry/BezierPath.h"

#include <glm/vec2.hpp>

#include <vector>

namespace zelvo::geometry {

/// A corner of a polyline that stands for a curve, with the curve's own direction before and behind
/// it (unit length; zero where a contour has no such side).
struct FlatVertex {
    glm::dvec2 position{};
    glm::dvec2 directionIn{};
    glm::dvec2 directionOut{};
};

using FlatContour = std::vector<FlatVertex>;

/// The polylines of a path, none of them repeating a point. No chord is further than `flatness`
/// from its curve. Contours that hold a coordinate that is not finite or beyond kMaxCoordinate
/// are left out.
[[nodiscard]] std::vector<FlatContour> flatten(const BezierPath& path, double flatness);

/// The same for one open contour: its ends have one direction each and stay apart.
[[nodiscard]] FlatContour flattenOpen(const BezierPath& path, double flatness);

constexpr double kMaxCoordinate = 1 << 18; ///< scene units

} // namespace zelvo::geometry
