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
/// The solid is centred on z = 0. Along z, a chamfer takes the smaller of chamferRadius and half
/// the depth. The profile goes from (0, 1) to (1, 0) in the unit square: x from the edge of the
/// face to the outline, y from the end of the side wall to the face. Where a stroke is thinner than
/// twice the radius, the two chamfers meet in a ridge that is lower than the face.
struct ExtrusionOptions {
    float depth = 1;         ///< scene units, > 0
    float chamferRadius = 0; ///< scene units, >= 0; 0 = no chamfer elements
    float flatness = 0.1f;   ///< largest distance between a curve and its chords, scene units, > 0
    /// One open contour; empty means the straight line from (0, 1) to (1, 0).
    BezierPath chamferProfile;
    /// Work out how much light reaches the far end of each side wall.
    bool hasOpenness = false;
};

/// What is computed once for an outline and used for every depth, radius and profile: the flattened
/// union of its contours (non-zero), and the map of the nearest boundary piece.
class OutlineSkeleton;

/// Never fails: an outline without area gives an empty solid.
[[nodiscard]] std::shared_ptr<const OutlineSkeleton>
makeSkeleton(const BezierPath& outline, float flatness);

/// Computes now what the first chamfer would have to; that takes most of the time. Any thread.
void prepareChamfer(const OutlineSkeleton& skeleton);

/// A closed solid. Its elements are front, back, sides and, with a chamfer, front chamfer, back
/// chamfer (always 3 or 5 elements, even if empty). Normals are smooth along curves and broken at
/// corners. Texture coordinates of the faces cover the outline's bounding box (0 to 1 over the
/// larger side, same scale on both axes). Those of the sides follow arc length and depth at the
/// same scale, so that a texture has one size everywhere.
[[nodiscard]] Mesh extrude(const OutlineSkeleton& skeleton, const ExtrusionOptions& options);
[[nodiscard]] Mesh extrude(const BezierPath& outline, const ExtrusionOptions& options);

/// Makes solids of one outline, one after another. What depends on the chamfer alone is kept for the
/// next solid, so that another depth takes a fraction of the time. The solids are those of `extrude`.
class Extruder {
public:
    explicit Extruder(std::shared_ptr<const OutlineSkeleton> outline);
    ~Extruder();
    Extruder(const Extruder&) = delete;
    Extruder& operator=(const Extruder&) = delete;

    [[nodiscard]] Mesh extrude(const ExtrusionOptions& options);

private:
    struct State;
    std::unique_ptr<State> state;
};

} // namespace zelvo::geometry
