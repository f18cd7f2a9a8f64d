// SPDX-License-Identifier: MIT
#include "platform/render/BackgroundPass.h"

#include "platform/render/Hash.h"

#include <glm/matrix.hpp>

#include <array>

namespace zelvo::render {
namespace {

using scene::SCNMaterialProperty;

bool isPicture(const SCNMaterialProperty& background) {
    return background.image() || std::holds_alternative<scene::CubeImages>(background.contents);
}

/// From clip space to directions in the world, without the camera's position.
glm::mat4 directionsOf(const CameraView& camera) {
    const glm::mat4& p = camera.projection;
    glm::mat4 fromClip(0);
    fromClip[0] = glm::vec4(camera.axes[0] / p[0][0], 0);
    fromClip[1] = glm::vec4(camera.axes[1] / p[1][1], 0);
    fromClip[3] = glm::vec4(-camera.axes[2], 0);
    return fromClip;
}

} // namespace

void BackgroundPass::draw(
    const Tools& tools,
    const SCNMaterialProperty& background,
    const CameraView& camera,
    const RenderTarget& target) {
    if (!isPicture(background)) {
        const image::Color color = background.colorOr(image::Color::white(0));
        target.bind(tools.state);
        tools.state.clearColor(
            color.red * color.alpha, color.green * color.alpha, color.blue * color.alpha);
        return;
    }
    if (!isKept(background, camera, target.size())) {
        ++drawings;
        kept.resize(target.size(), tools.state);
        drawPicture(tools, background, camera);
        keptView = directionsOf(camera);
        keptContents = background.contents;
    }
    kept.copyTo(target, tools.state);
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
    return kept.size() == size && keptView == directionsOf(camera) &&
           keptContents == background.contents;
}

void BackgroundPass::drawPicture(
    const Tools& tools, const SCNMaterialProperty& background, const CameraView& camera) {
    TextureStore& textures = tools.textures;
    PassBlock block;
    block.passDirections = directionsOf(camera);
    const FullscreenPass::Tools drawing{tools.state, tools.uniforms};
    if (const auto* faces = std::get_if<scene::CubeImages>(&background.contents)) {
        cube.run(
            drawing,
            kept,
            {{kPictureUnit, textures.cube(*faces), textures.smoothSampler()}},
            block);
        return;
    }
    const std::uint32_t picture = textures.picture(background.image(), PictureUse::backdrop);
    equirectangular.run(
        drawing, kept, {{kPictureUnit, picture, textures.backdropSampler()}}, block);
}

} // namespace zelvo::render
