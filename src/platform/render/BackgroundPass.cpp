// SPDX-License-Identifier: MIT
#include "platform/render/BackgroundPass.h"

#include "platform/render/Hash.h"
#include "platform/render/MaterialBinding.h"

#include <glm/matrix.hpp>

#include <array>

namespace zelvo::render {
namespace {

using scene::SCNMaterialProperty;

/// From clip space to directions in the world, without the camera's position.
glm::mat4 directionsOf(const CameraView& camera) {
    const glm::mat4& p = camera.projection;
    glm::mat4 fromClip(0);
    fromClip[0] = glm::vec4(camera.axes[0] / p[0][0], 0);
    fromClip[1] = glm::vec4(camera.axes[1] / p[1][1], 0);
    fromClip[3] = glm::vec4(-camera.axes[2], 0) + fromClip[0] * p[2][0] + fromClip[1] * p[2][1];
    return fromClip;
}

} // namespace

bool BackgroundPass::isPicture(const SCNMaterialProperty& background) {
    return background.image() || std::holds_alternative<scene::CubeImages>(background.contents);
}

void BackgroundPass::draw(
    const Tools& tools,
    const SCNMaterialProperty& background,
    const CameraView& camera,
    const RenderTarget& target) {
    if (!isPicture(background)) {
        const image::Color color = background.colorOr(image::Color::white(0));
        const glm::vec3 light = linearColor(
            {color.red * color.alpha, color.green * color.alpha, color.blue * color.alpha, 1});
        target.bind(tools.state);
        tools.state.clearColor(light);
        return;
    }
    TextureStore& textures = tools.textures;
    PassBlock block;
    block.passDirections = directionsOf(camera);
    const FullscreenPass::Tools drawing{tools.state, tools.uniforms};
    if (const auto* faces = std::get_if<scene::CubeImages>(&background.contents)) {
        cube.run(
            drawing,
            target,
            {{kPictureUnit, textures.cube(*faces), textures.smoothSampler()}},
            block);
        return;
    }
    const std::uint32_t picture = textures.picture(background.image(), PictureUse::backdrop);
    equirectangular.run(
        drawing, target, {{kPictureUnit, picture, textures.backdropSampler()}}, block);
}

std::uint64_t BackgroundPass::key(const SCNMaterialProperty& background) {
    Hash hash;
    if (isPicture(background)) {
        if (background.contents != lastPicture) {
            lastPicture = background.contents;
            ++pictures;
        }
        hash.add(pictures);
    } else {
        const image::Color color = background.colorOr(image::Color::white(0));
        hash.addBlock(std::array{color.red, color.green, color.blue, color.alpha});
    }
    return hash.result();
}

} // namespace zelvo::render
