// SPDX-License-Identifier: MIT
#include "platform/render/ShadowPass.h"

#include "platform/render/Hash.h"

#include <epoxy/gl.h>

namespace zelvo::render {
namespace {

std::uint64_t contentOf(const Snapshot& snapshot, const ShadowView& view) {
    const scene::SCNLight& light = *snapshot.lights()[view.light].light;
    Hash hash;
    hash.addBlock(view.viewProjection);
    for (const VisibleNode& node : snapshot.nodes()) {
        if (!casts(node, light))
            continue;
        hash.add(node.geometry->revision());
        hash.add(node.level);
        hash.addBlock(node.world);
        hash.addBlock(node.opacity);
    }
    return hash.result();
}

// Depth offset against self-shadowing, in addition to the shift along the normal (as in
// glPolygonOffset).
constexpr float kDepthOffset = 2;
constexpr float kSlopeOffset = 1.5f;

} // namespace

void ShadowPass::draw(
    const Tools& tools, const Snapshot& snapshot, std::span<const ShadowView> views) {
    for (std::size_t i = 0; i < views.size(); ++i) {
        Map& map = maps.at(i);
        const int side = views[i].mapSize;
        const bool isNew = map.target.resize({side, side}, tools.state);
        const std::uint64_t content = contentOf(snapshot, views[i]);
        if (!isNew && map.content == content)
            continue;
        map.content = content;
        map.target.bind(tools.state);
        drawCasters(tools, snapshot, views[i]);
    }
}

void ShadowPass::drawCasters(const Tools& tools, const Snapshot& snapshot, const ShadowView& view) {
    const scene::SCNLight& light = *snapshot.lights()[view.light].light;
    FrameBlock frame;
    frame.viewProjection = view.viewProjection;
    tools.state.clearDepth();
    tools.uniforms.bind(tools.state, kFrameBinding, frame);
    // No culling: a letter's back wall must stop the light as well as its front.
    tools.state.set({.culling = Culling::none});
    tools.state.setDepthOffset(kDepthOffset, kSlopeOffset);
    for (const VisibleNode& node : snapshot.nodes()) {
        if (!casts(node, light))
            continue;
        const bool isFading = node.opacity < 1;
        tools.state.useProgram(tools.shaders.depthProgram(
            isFading ? SurfaceShaders::DepthOnly::screenDoor : SurfaceShaders::DepthOnly::whole));
        ItemBlock item;
        item.world = node.world;
        item.diffuse.a = node.opacity;
        tools.uniforms.bind(tools.state, kItemBinding, item);
        tools.state.bindVertexArray(tools.meshes.vertexArray(*node.geometry, node.level));
        const geometry::Mesh& mesh = node.geometry->mesh();
        const auto count = static_cast<GLsizei>(
            node.level == 0 ? mesh.indices.size() : mesh.coarser[node.level - 1].indices.size());
        glDrawElements(GL_TRIANGLES, count, GL_UNSIGNED_INT, nullptr);
    }
    tools.state.setDepthOffset(0, 0);
}

} // namespace zelvo::render
