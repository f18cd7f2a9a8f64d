// SPDX-License-Identifier: MIT
#pragma once

#include "platform/geometry/Mesh.h"

namespace zelvo::geometry {

// Solids around the origin, one element each; lengths in scene units.

/// Chamfered edges are rounded; chamferRadius 0 gives plain corners.
[[nodiscard]] Mesh makeBox(float width, float height, float length, float chamferRadius);
/// Poles on the y axis; segmentCount >= 3 around, half as many from pole to pole.
[[nodiscard]] Mesh makeSphere(float radius, int segmentCount);
/// In the xy plane, facing +z; u to the right, v downwards from the top edge.
[[nodiscard]] Mesh makePlane(float width, float height);
/// Around the y axis.
[[nodiscard]] Mesh
makeTorus(float ringRadius, float pipeRadius, int ringSegments, int pipeSegments);

} // namespace zelvo::geometry
