// SPDX-License-Identifier: MIT
#pragma once

#include "platform/geometry/Mesh.h"

#include <cstddef>
#include <string>

namespace zelvo::geometry {

/// What makes a mesh a sound solid, measured. Vertices at the same place count as one; triangles
/// that thereby have no three corners are left out.
struct SolidReport {
    std::size_t triangles = 0;
    std::size_t openSides = 0; ///< sides not used exactly once in each direction
    std::size_t badNumbers =
        0; ///< vertices with a number that is not finite, or a normal or tangent not of length 1
    std::size_t folded =
        0; ///< triangles reversed in plan, or that face away from their vertices' normals
    double volume = 0; ///< by the divergence theorem; positive if the triangles face outwards
    long euler = 0;    ///< corners - sides + triangles: 2 for a ball, 0 for a ring
};

[[nodiscard]] SolidReport inspect(const Mesh& mesh);

/// Empty if the solid is closed, sane and faces outwards; else what is wrong.
[[nodiscard]] std::string faultOf(const Mesh& mesh);

} // namespace zelvo::geometry
