// SPDX-License-Identifier: MIT
#include "platform/render/DepthOfFieldPass.h"

#include "platform/render/DepthOfField.h"

#include <algorithm>

namespace zelvo::render {
namespace {

/// radius of the largest circle, as a share of the picture's height
constexpr double kWidest = 1.0 / 30;

/// The camera's values that the shader needs.
PassBlock lensOf(const scene::SCNCamera& camera, Size size) {
    PassBlock block;
    const auto near = static_cast<float>(camera.zNear);
    const auto far = static_cast<float>(camera.zFar);
    const double height = size.height;
    const double radius = largestBlur(camera, size) / 2;
    block.passNumbers[0] = {
        near * far, far - near, near, static_cast<float>(std::min(radius, kWidest * height))};
    block.passNumbers[1] = {
        static_cast<float>(radius), static_cast<float>(camera.focusDistance), 0, 0};
    return block;
}

} // namespace

void DepthOfFieldPass::draw(
    const scene::SCNCamera& camera,
    const RenderTarget& scene,
    const FramePictures& pictures,
    const FullscreenPass::Tools& tools) {
    const RenderTarget& picture = pictures.picture;
    (scene.samples() > 1 ? passOfSamples : pass)
        .run(
            tools,
            pictures.spare,
            {{kPictureUnit, picture.color()}, {kDepthUnit, scene.depth()}},
            lensOf(camera, picture.size()));
    pictures.exchange();
}

} // namespace zelvo::render
