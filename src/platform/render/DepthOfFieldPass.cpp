// SPDX-License-Identifier: MIT
#include "platform/render/DepthOfFieldPass.h"

#include "platform/foundation/Check.h"
#include "platform/render/DepthOfField.h"
#include "platform/render/ShaderBlocks.h"
#include "platform/render/ShaderProgram.h"

#include <epoxy/gl.h>

#include <algorithm>

namespace zelvo::render {
namespace {

constexpr double kWidest = 1.0 / 30; ///< radius of the widest circle, in heights of the picture

/// What the shader reads of the camera, in the frame's block.
FrameBlock lensOf(const scene::SCNCamera& camera, Size size) {
    FrameBlock block;
    const auto near = static_cast<float>(camera.zNear);
    const auto far = static_cast<float>(camera.zFar);
    const double height = size.height;
    const double radius = largestBlur(camera, size.height) / 2;
    block.frame = {
        near * far, far - near, near, static_cast<float>(std::min(radius, kWidest * height))};
    block.cameraPosition = {
        static_cast<float>(radius), static_cast<float>(camera.focusDistance), 0, 0};
    return block;
}

} // namespace

void DepthOfFieldPass::draw(
    const scene::SCNCamera& camera,
    const Picture& picture,
    GraphicsState& state,
    UniformArena& uniforms) {
    ensureTools();
    ensureSize(picture.size, state);
    uniforms.bind(state, kFrameBinding, lensOf(camera, picture.size));
    state.set(
        {.depthTest = DepthTest::off, .depthWrite = DepthWrite::off, .culling = Culling::none});
    state.bindFramebuffer(blurredFramebuffer.name(), size);
    state.useProgram(program.name());
    state.bindVertexArray(noVertices.name());
    state.bindTexture(kPictureUnit, picture.color, nearest.name());
    state.bindTexture(kDepthUnit, picture.depth, nearest.name());
    glDrawArrays(GL_TRIANGLES, 0, 3);
    glBlitNamedFramebuffer(
        blurredFramebuffer.name(),
        picture.framebuffer,
        0,
        0,
        size.width,
        size.height,
        0,
        0,
        size.width,
        size.height,
        GL_COLOR_BUFFER_BIT,
        GL_NEAREST);
    state.bindFramebuffer(picture.framebuffer, size);
}

void DepthOfFieldPass::ensureTools() {
    if (program)
        return;
    auto built = buildProgram({"technique.vert", "depth_of_field.frag"});
    CHECK(built.has_value(), "{}", built.error().message);
    program = std::move(*built);
    GLuint name = 0;
    glCreateVertexArrays(1, &name);
    noVertices = VertexArrayHandle(name);
    glCreateSamplers(1, &name);
    nearest = SamplerHandle(name);
    glSamplerParameteri(name, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glSamplerParameteri(name, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
}

void DepthOfFieldPass::ensureSize(Size wanted, GraphicsState& state) {
    if (size == wanted)
        return;
    state.forgetBindings();
    GLuint name = 0;
    glCreateTextures(GL_TEXTURE_2D, 1, &name);
    blurred = TextureHandle(name);
    glTextureStorage2D(name, 1, GL_RGBA8, wanted.width, wanted.height);
    glCreateFramebuffers(1, &name);
    blurredFramebuffer = FramebufferHandle(name);
    glNamedFramebufferTexture(name, GL_COLOR_ATTACHMENT0, blurred.name(), 0);
    size = wanted;
}

} // namespace zelvo::render
