// SPDX-License-Identifier: MIT
#pragma once

#include "platform/geometry/Mesh.h"

namespace zelvo::geometry {

// Solids around the origin, each with one element. Lengths in scene units.

/// Edges are rounded; chamferRadius 0 gives sharp edges.
[[nodiscard]] Mesh makeBox(float width, float height, float length, float chamferRadius);
/// The poles are on the y axis. `segmentCount` (at least 3) goes around, half as many from pole to
/// pole.
[[nodiscard]] Mesh makeSphere(float radius, int segmentCount);
/// A sphere of six sides, like a blown-up cube. Pictures repeat on each side and are nowhere
/// stretched by more than a third. `segmentCount` (at least 4) goes around.
[[nodiscard]] Mesh makeSixSidedSphere(float radius, int segmentCount);
/// In the xy plane, facing +z. u goes right, v goes down from the top edge.
[[nodiscard]] Mesh makePlane(float width, float height);
/// The axis is y.
[[nodiscard]] Mesh
makeTorus(float ringRadius, float pipeRadius, int ringSegments, int pipeSegments);

} // namespace zelvo::geometry
