// SPDX-License-Identifier: MIT
#pragma once

#include "platform/geometry/BezierPath.h"

#include <glm/vec2.hpp>

#include <vector>

namespace zelvo::geometry {

/// A corner of a flattened curve, with the curve's direction before and after it (unit length; zero
/// at an open end).
struct FlatVertex {
    glm::dvec2 position{};
    glm::dvec2 directionIn{};
    glm::dvec2 directionOut{};
};

using FlatContour = std::vector<FlatVertex>;

/// The polylines of a path; no point is repeated. Chords are at most `flatness` away from their
/// curve. A contour with a coordinate that is not finite or beyond kMaxCoordinate is left out.
[[nodiscard]] std::vector<FlatContour> flatten(const BezierPath& path, double flatness);

/// The same for one open contour: its ends are not joined.
[[nodiscard]] FlatContour flattenOpen(const BezierPath& path, double flatness);

constexpr double kMaxCoordinate = 1 << 18; ///< scene units

} // namespace zelvo::geometry
