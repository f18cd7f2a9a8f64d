// SPDX-License-Identifier: MIT
#pragma once

#include "platform/geometry/Mesh.h"

#include <cstddef>
#include <string>

namespace zelvo::geometry {

/// Measures whether a mesh is a closed solid. Vertices at the same place count as one. Triangles
/// that then have fewer than three corners are left out.
struct SolidReport {
    std::size_t triangles = 0;
    std::size_t openSides = 0; ///< sides not used exactly once in each direction
    /// Vertices with a number that is not finite, or a normal or tangent that is not a unit vector.
    std::size_t badNumbers = 0;
    /// Triangles that are reversed from the front, or that face away from their vertices' normals.
    std::size_t folded = 0;
    /// Triangles whose texture does not run along their vertices' tangents, or is mirrored there.
    /// On narrow chamfers some may be.
    std::size_t twisted = 0;
    double volume = 0; ///< by the divergence theorem; positive if the triangles face outwards
    long euler = 0;    ///< corners - sides + triangles: 2 for a ball, 0 for a ring
};

[[nodiscard]] SolidReport inspect(const Mesh& mesh);

/// Empty if the solid is closed, valid and faces outwards; otherwise what is wrong.
[[nodiscard]] std::string faultOf(const Mesh& mesh);

} // namespace zelvo::geometry
