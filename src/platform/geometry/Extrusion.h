// SPDX-License-Identifier: MIT
#pragma once

#include "platform/geometry/BezierPath.h"
#include "platform/geometry/Mesh.h"

#include <memory>

namespace zelvo::geometry {

/// How a filled outline becomes a solid.
///
///      z ^      ____________      front face, drawn in by chamferRadius
///        |     /            \     front chamfer: follows the profile
///        |    |              |    side wall, on the outline itself
///        0    |              |
///        |    |              |
///        |     \____________/     back chamfer, back face
///
/// The solid is centred on z = 0. Along z a chamfer takes the smaller of chamferRadius and half the
/// depth. The profile runs in the unit square from (0, 1) to (1, 0): x grows from the rim of the
/// face to the outline, y from the end of the side wall to the face, both in units of what the
/// chamfer takes. Where a stroke is thinner than twice the radius the two chamfers meet in a ridge
/// below the height of the face.
struct ExtrusionOptions {
    float depth = 1;         ///< scene units, > 0
    float chamferRadius = 0; ///< scene units, >= 0; 0 makes no chamfer elements
    float flatness = 0.1f;   ///< largest distance between a curve and its chords, scene units, > 0
    BezierPath
        chamferProfile; ///< one open contour; empty means the straight line from (0, 1) to (1, 0)
};

/// What is found out about an outline once and serves every depth, radius and profile after: its
/// flattened non-zero union and the map of which boundary piece is nearest to each inner point.
class OutlineSkeleton;

/// Never fails: an outline that holds no area gives a skeleton whose solid is empty.
[[nodiscard]] std::shared_ptr<const OutlineSkeleton>
makeSkeleton(const BezierPath& outline, float flatness);

/// A closed solid with the elements front, back, sides and, with a chamfer, front chamfer, back
/// chamfer, in this order (always 3 or 5 elements, also when empty). Normals are smooth along
/// curves and broken at corners; texture coordinates run over the outline's bounding box on the
/// faces (0 to 1 over the larger side, the same scale on both axes) and by arc length and depth on
/// the sides, at the same scale, so that a texture has one size all over.
[[nodiscard]] Mesh extrude(const OutlineSkeleton& skeleton, const ExtrusionOptions& options);
[[nodiscard]] Mesh extrude(const BezierPath& outline, const ExtrusionOptions& options);

/// The area enclosed, in square units, and the side walls' total length: what tests hold solids
/// against.
[[nodiscard]] float areaOf(const OutlineSkeleton& skeleton);
[[nodiscard]] float perimeterOf(const OutlineSkeleton& skeleton);

} // namespace zelvo::geometry
