// SPDX-License-Identifier: MIT
#pragma once

#include <glm/vec2.hpp>
#include <glm/vec3.hpp>
#include <glm/vec4.hpp>

#include <cstdint>
#include <vector>

namespace zelvo::geometry {

/// An axis-aligned box. It is empty if min is above max.
struct Box {
    glm::vec3 min{1e30f};
    glm::vec3 max{-1e30f};

    [[nodiscard]] bool isEmpty() const { return min.x > max.x; }

    void include(const glm::vec3& point);
    void include(const Box& other);
};

/// A vertex in the renderer's format.
struct Vertex {
    glm::vec3 position{};
    glm::vec3 normal{0, 0, 1};
    /// Unit vector along growing u; w is +1 or -1, the handedness of the bitangent.
    glm::vec4 tangent{1, 0, 0, 1};
    glm::vec2 uv{};
    /// Share of the light that reaches the far end of a wall (WallOpenness.h); elsewhere 1.
    float openness = 1;
};

/// A range of triangles with one material.
struct MeshElement {
    std::uint32_t firstIndex = 0;
    std::uint32_t indexCount = 0; ///< a multiple of 3
    bool isRim = false;           ///< a chamfer: polished more than the rest (SCNMaterial::rim)
    bool hasOpenness = false;     ///< its vertices' openness is not 1 everywhere
    /// The side of the shape's box on which the element lies: the box's axis, outwards. Seen from
    /// there, nothing of the shape stands before the element. 0: not known, or there is no such
    /// side.
    glm::vec3 facing{0};
    float depth = 0; ///< how far it reaches into the box from that side. 0: it is flat
};

/// A coarser version of a mesh, with some of its vertices.
struct MeshLevel {
    std::vector<std::uint32_t> indices;
    float error = 0; ///< how far its surface is from the mesh, about; in the mesh's units
};

/// Triangles are counter-clockwise seen from outside.
struct Mesh {
    std::vector<Vertex> vertices;
    std::vector<std::uint32_t> indices;
    std::vector<MeshElement> elements;
    /// To be drawn where the mesh is small in the picture; finest first. Only a mesh with one
    /// element has them (see MeshLevels.h).
    std::vector<MeshLevel> coarser;
    /// Whether its back faces can never be seen from outside of its box (see ClosedSolid.h). False
    /// if nobody has looked.
    bool isClosedSolid = false;

    [[nodiscard]] Box bounds() const;
};

} // namespace zelvo::geometry
