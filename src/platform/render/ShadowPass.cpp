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
        glGenerateTextureMipmap(map.target.color());
    }
}

void ShadowPass::drawCasters(const Tools& tools, const Snapshot& snapshot, const ShadowView& view) {
    const scene::SCNLight& light = *snapshot.lights()[view.light].light;
    beginMap(tools, view.viewProjection);
    for (const VisibleNode& node : snapshot.nodes()) {
        if (casts(node, light))
            drawCaster(tools, node);
    }
}

void ShadowPass::beginMap(const Tools& tools, const glm::mat4& viewProjection) {
    FrameBlock frame;
    frame.viewProjection = viewProjection;
    tools.state.clear();
    tools.uniforms.bind(tools.state, kFrameBinding, frame);
    // The greatest depth is the nearest to the light. No culling: a letter's back wall must stop the
    // light as well as its front.
    tools.state.set(
        {.depthTest = DepthTest::off,
         .depthWrite = DepthWrite::off,
         .culling = Culling::none,
         .blend = Blend::greatest});
    tools.state.useProgram(tools.shaders.casterProgram());
}

void ShadowPass::drawCaster(const Tools& tools, const VisibleNode& node) {
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

} // namespace zelvo::render
