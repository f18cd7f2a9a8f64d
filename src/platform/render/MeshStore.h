// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/Handles.h"
#include "platform/scene/SCNGeometry.h"

#include <cstdint>
#include <unordered_map>

namespace zelvo::render {

/// Meshes on the graphics side, by their revision. One that has not been drawn for a while is
/// dropped.
class MeshStore {
public:
    /// A vertex array with positions, normals, tangents, texture coordinates at locations 0 to 3,
    /// and 32-bit indices.
    [[nodiscard]] std::uint32_t vertexArray(const scene::SCNGeometry& geometry);

    /// Once a frame. True if something was dropped.
    bool prune();

private:
    struct Uploaded {
        VertexArrayHandle array;
        BufferHandle vertices;
        BufferHandle indices;
        std::uint64_t lastFrame = 0;
    };

    std::unordered_map<std::uint64_t, Uploaded> meshes;
    std::uint64_t frame = 0;
};

} // namespace zelvo::render
