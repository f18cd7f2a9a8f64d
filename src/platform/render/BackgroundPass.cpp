// SPDX-License-Identifier: MIT
#include "platform/render/BackgroundPass.h"

#include "platform/foundation/Check.h"
#include "platform/render/Hash.h"
#include "platform/render/MaterialBinding.h"
#include "platform/render/ShaderProgram.h"

#include <epoxy/gl.h>
#include <glm/matrix.hpp>

#include <array>

namespace zelvo::render {
namespace {

using scene::SCNMaterialProperty;

bool isPicture(const SCNMaterialProperty& background) {
    return background.image() || std::holds_alternative<scene::CubeImages>(background.contents);
}

/// Clip space to directions in the world, free of where the camera stands.
glm::mat4 directionsOf(const CameraView& camera) {
    const glm::mat4& p = camera.projection;
    glm::mat4 fromClip(0);
    fromClip[0] = glm::vec4(camera.axes[0] / p[0][0], 0);
    fromClip[1] = glm::vec4(camera.axes[1] / p[1][1], 0);
    fromClip[3] = glm::vec4(-camera.axes[2], 0);
    return fromClip;
}

ProgramHandle build(std::vector<std::string> defines) {
    auto program = buildProgram({"fullscreen.vert", "background.frag", std::move(defines)});
    CHECK(program.has_value(), "{}", program.error().message);
    return std::move(*program);
}

} // namespace

void BackgroundPass::draw(
    const Tools& tools,
    const SCNMaterialProperty& background,
    const CameraView& camera,
    std::uint32_t framebuffer,
    Size size) {
    if (!isPicture(background)) {
        const image::Color color = background.colorOr(image::Color::white(0));
        tools.state.bindFramebuffer(framebuffer, size);
        tools.state.clearColor(
            color.red * color.alpha, color.green * color.alpha, color.blue * color.alpha);
        return;
    }
    if (!isKept(background, camera, size)) {
        ++drawings;
        ensureSize(size, tools.state);
        tools.state.bindFramebuffer(keptFramebuffer.name(), size);
        drawPicture(tools, background, camera);
        keptView = directionsOf(camera);
        keptContents = background.contents;
    }
    glBlitNamedFramebuffer(
        keptFramebuffer.name(),
        framebuffer,
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
    tools.state.bindFramebuffer(framebuffer, size);
}

std::uint64_t BackgroundPass::key(
    const SCNMaterialProperty& background, const CameraView& camera, Size size) const {
    if (isPicture(background))
        return drawings + (isKept(background, camera, size) ? 0 : 1);
    const image::Color color = background.colorOr(image::Color::white(0));
    Hash hash;
    hash.addBlock(std::array{color.red, color.green, color.blue, color.alpha});
    return hash.result();
}

bool BackgroundPass::isKept(
    const SCNMaterialProperty& background, const CameraView& camera, Size size) const {
    return keptSize == size && keptView == directionsOf(camera) &&
           keptContents == background.contents;
}

void BackgroundPass::drawPicture(
    const Tools& tools, const SCNMaterialProperty& background, const CameraView& camera) {
    if (!noVertices) {
        GLuint name = 0;
        glCreateVertexArrays(1, &name);
        noVertices = VertexArrayHandle(name);
        equirectangular = build({});
        cube = build({"CUBE"});
    }
    FrameBlock frame;
    frame.viewProjection = directionsOf(camera);
    tools.uniforms.bind(tools.state, kFrameBinding, frame);
    tools.state.set(
        {.depthTest = DepthTest::off, .depthWrite = DepthWrite::off, .culling = Culling::none});
    if (const auto* faces = std::get_if<scene::CubeImages>(&background.contents)) {
        tools.state.useProgram(cube.name());
        tools.state.bindTexture(
            kPictureUnit, tools.textures.cube(*faces), tools.textures.smoothSampler());
    } else {
        tools.state.useProgram(equirectangular.name());
        tools.state.bindTexture(
            kPictureUnit,
            tools.textures.picture(background.image(), PictureUse::backdrop),
            tools.textures.backdropSampler());
    }
    tools.state.bindVertexArray(noVertices.name());
    glDrawArrays(GL_TRIANGLES, 0, 3);
}

void BackgroundPass::ensureSize(Size wanted, GraphicsState& state) {
    if (keptSize == wanted)
        return;
    state.forgetBindings();
    GLuint name = 0;
    glCreateTextures(GL_TEXTURE_2D, 1, &name);
    kept = TextureHandle(name);
    glTextureStorage2D(name, 1, GL_RGBA8, wanted.width, wanted.height);
    glCreateFramebuffers(1, &name);
    keptFramebuffer = FramebufferHandle(name);
    glNamedFramebufferTexture(name, GL_COLOR_ATTACHMENT0, kept.name(), 0);
    keptSize = wanted;
}

} // namespace zelvo::render
