// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/Handles.h"
#include "platform/scene/SCNGeometry.h"

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

namespace zelvo::render {

/// Keeps meshes in GPU memory, by their revision. A mesh that was not drawn for some time is
/// dropped.
class MeshStore {
public:
    /// A vertex array with 32-bit indices. Locations 0 to 3 are position, normal, tangent, texture
    /// coordinate; 4 is the linear colour, if the geometry is an SCNColoredGeometry.
    /// `level` 0 has the indices of the mesh, 1 those of its first coarser version, and so on.
    [[nodiscard]] std::uint32_t vertexArray(const scene::SCNGeometry& geometry, std::size_t level);

    /// Call it once a frame. True if a mesh was dropped.
    bool prune();

private:
    struct Level {
        VertexArrayHandle array;
        BufferHandle indices;
    };

    struct Uploaded {
        BufferHandle vertices;
        BufferHandle colors;       ///< none if the geometry has no colours
        std::vector<Level> levels; ///< uploaded when they are first drawn
        std::uint64_t lastFrame = 0;
    };

    std::unordered_map<std::uint64_t, Uploaded> meshes;
    std::uint64_t frame = 0;
};

} // namespace zelvo::render
