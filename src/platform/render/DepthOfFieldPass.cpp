// SPDX-License-Identifier: MIT
#include "platform/render/DepthOfFieldPass.h"

#include "platform/render/DepthOfField.h"

#include <algorithm>

namespace zelvo::render {
namespace {

constexpr double kWidest = 1.0 / 30; ///< radius of the widest circle, in heights of the picture

/// What the shader reads of the camera.
PassBlock lensOf(const scene::SCNCamera& camera, Size size) {
    PassBlock block;
    const auto near = static_cast<float>(camera.zNear);
    const auto far = static_cast<float>(camera.zFar);
    const double height = size.height;
    const double radius = largestBlur(camera, size.height) / 2;
    block.passNumbers[0] = {
        near * far, far - near, near, static_cast<float>(std::min(radius, kWidest * height))};
    block.passNumbers[1] = {
        static_cast<float>(radius), static_cast<float>(camera.focusDistance), 0, 0};
    return block;
}

} // namespace

void DepthOfFieldPass::draw(
    const scene::SCNCamera& camera,
    const FramePictures& pictures,
    const FullscreenPass::Tools& tools) {
    const RenderTarget& picture = pictures.picture;
    pass.run(
        tools,
        pictures.spare,
        {{kPictureUnit, picture.color()}, {kDepthUnit, picture.depth()}},
        lensOf(camera, picture.size()));
    pictures.exchange();
}

} // namespace zelvo::render
