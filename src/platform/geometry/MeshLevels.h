// SPDX-License-Identifier: MIT
#pragma once

#include "platform/geometry/Mesh.h"

#include <functional>

namespace zelvo::geometry {

/// Coarser versions of a mesh, each with about half of the triangles of the one before. An imported
/// object can have more triangles than pixels, and each costs at least the shading of a pixel.
/// Edges of collapsed triangles are chosen by the quadric error (Garland and Heckbert, "Surface
/// Simplification Using Quadric Error Metrics", 1997). Open borders stay, so that pieces that touch
/// each other still do. Empty for small meshes and those of several elements. Takes 1 to 2
/// microseconds a triangle.
/// `isStopped` is asked between two versions; what was made until then is returned.
[[nodiscard]] std::vector<MeshLevel>
coarserLevels(const Mesh& mesh, const std::function<bool()>& isStopped = {});

} // namespace zelvo::geometry
