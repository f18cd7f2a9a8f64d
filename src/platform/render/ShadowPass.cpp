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
        hash.addBlock(node.world);
        hash.addBlock(node.opacity);
    }
    return hash.result();
}

// Against self-shadowing, beside the shift along the normal: in units of depth and of its slope.
constexpr float kDepthOffset = 2;
constexpr float kSlopeOffset = 1.5f;

} // namespace

void ShadowPass::draw(
    const Tools& tools, const Snapshot& snapshot, std::span<const ShadowView> views) {
    for (std::size_t i = 0; i < views.size(); ++i) {
        Map& map = maps.at(i);
        ensureSize(map, views[i].mapSize, tools.state);
        const std::uint64_t content = contentOf(snapshot, views[i]);
        if (map.content == content)
            continue;
        map.content = content;
        tools.state.bindFramebuffer(map.framebuffer.name(), {map.size, map.size});
        drawCasters(tools, snapshot, views[i]);
    }
}

void ShadowPass::ensureSize(Map& map, int size, GraphicsState& state) {
    if (map.size == size)
        return;
    state.forgetBindings();
    GLuint name = 0;
    glCreateTextures(GL_TEXTURE_2D, 1, &name);
    map.depth = TextureHandle(name);
    glTextureStorage2D(name, 1, GL_DEPTH_COMPONENT32F, size, size);
    glCreateFramebuffers(1, &name);
    map.framebuffer = FramebufferHandle(name);
    glNamedFramebufferTexture(name, GL_DEPTH_ATTACHMENT, map.depth.name(), 0);
    glNamedFramebufferDrawBuffer(name, GL_NONE);
    map.size = size;
    map.content = 0;
}

void ShadowPass::drawCasters(const Tools& tools, const Snapshot& snapshot, const ShadowView& view) {
    const scene::SCNLight& light = *snapshot.lights()[view.light].light;
    FrameBlock frame;
    frame.viewProjection = view.viewProjection;
    tools.state.clearDepth();
    tools.uniforms.bind(tools.state, kFrameBinding, frame);
    // Both sides: a letter's back wall must keep the light out as well as its front.
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
        tools.state.bindVertexArray(tools.meshes.vertexArray(*node.geometry));
        const auto count = static_cast<GLsizei>(node.geometry->mesh().indices.size());
        glDrawElements(GL_TRIANGLES, count, GL_UNSIGNED_INT, nullptr);
    }
    tools.state.setDepthOffset(0, 0);
}

} // namespace zelvo::render
