// SPDX-License-Identifier: MIT
#pragma once

#include "platform/geometry/Mesh.h"

#include <glm/vec3.hpp>

#include <cstddef>
#include <vector>

namespace zelvo::geometry {

/// An edge of a mesh, with the normals of the two faces that meet there. They are not of unit
/// length. An edge with one face only has its normal and the opposite one.
struct MeshEdge {
    glm::vec3 from{};
    glm::vec3 to{};
    glm::vec3 normal{};
    glm::vec3 otherNormal{};
    /// Its faces look different, so it is seen whenever one of them is. Other edges are seen only
    /// in silhouette.
    bool isCrease = false;
};

/// All edges that can separate two colours in a picture; those within a flat face cannot. Vertices
/// at equal positions count as one. `level` 0 is the mesh itself, n the nth of its coarser versions.
[[nodiscard]] std::vector<MeshEdge> meshEdges(const Mesh& mesh, std::size_t level = 0);

/// Whether the edge separates two colours as seen from a place, if nothing hides it. The place is in
/// the space of the mesh.
[[nodiscard]] bool isSeenFrom(const MeshEdge& edge, const glm::vec3& place);

} // namespace zelvo::geometry
