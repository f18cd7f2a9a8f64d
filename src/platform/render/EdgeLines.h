// SPDX-License-Identifier: MIT
#pragma once

#include "platform/geometry/MeshEdges.h"
#include "platform/render/InstanceBuffer.h"
#include "platform/render/RenderTarget.h"
#include "platform/render/Snapshot.h"
#include "platform/render/UniformArena.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <utility>
#include <vector>

namespace zelvo::render {

/// Notes for each pixel where the edges of meshes run through it: two pictures of lines, of which
/// DisplayPass makes smooth edges. Four samples know only four places of an edge; its line is exact
/// (Persson 2011, "Geometry Buffer Anti-Aliasing").
///
/// The edges are found on the CPU: creases and silhouettes. Each is drawn as a thin quad, and left
/// out where the drawn scene is in front. Of several in a pixel, the two nearest to its middle count.
class EdgeLines {
public:
    struct Tools {
        GraphicsState& state;
        UniformArena& uniforms;
    };

    EdgeLines();

    /// `nodes` are indices into the snapshot's nodes. `scene` is drawn already, with four samples a
    /// pixel.
    void draw(
        const Tools& tools,
        const Snapshot& snapshot,
        std::span<const std::uint32_t> nodes,
        const RenderTarget& scene);

    /// Drops the edges of meshes that were not drawn for some time. Call it once a frame.
    void prune();

    [[nodiscard]] bool isEmpty() const { return instances.empty(); }

    /// They cover the pixels of all lines, and some beside them; a pixel under several lines more than
    /// once. Their vertex shader is edge_lines.vert.
    [[nodiscard]] const InstanceBuffer& quads() const { return buffer; }

    /// The line nearest to each pixel's middle, as in edge_line.glsl.
    [[nodiscard]] std::uint32_t nearest() const { return first.color(); }

    [[nodiscard]] std::uint32_t secondNearest() const { return second.color(); }

private:
    /// In the layout that the shader reads: the ends, in clip space after the division.
    struct Instance {
        glm::vec3 from;
        glm::vec3 to;
    };

    struct Edges {
        std::vector<geometry::MeshEdge> all;
        std::uint64_t lastFrame = 0;
    };

    [[nodiscard]] const std::vector<geometry::MeshEdge>& edgesOf(const VisibleNode& node);
    void
    addAll(const Snapshot& snapshot, std::span<const std::uint32_t> nodes, const glm::vec2& size);
    /// Returns the length of the lines in pixels.
    float add(const VisibleNode& node, const CameraView& camera, const glm::vec2& halfSize);

    RenderTarget first{TargetFormat::line, TargetFormat::depth16};
    RenderTarget second{{TargetFormat::line}, first};
    ProgramHandle findFirst;
    ProgramHandle findSecond;
    InstanceBuffer buffer;
    std::vector<std::uint32_t> byDistance;
    std::vector<Instance> instances; ///< kept between frames to reuse their memory
    std::map<std::pair<std::uint64_t, std::size_t>, Edges> known; ///< by revision and level
    std::uint64_t frame = 0;
};

} // namespace zelvo::render
