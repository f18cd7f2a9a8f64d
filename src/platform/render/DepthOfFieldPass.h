// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/FullscreenPass.h"
#include "platform/scene/SCNCamera.h"

namespace zelvo::render {

/// Blurs the parts of a picture that are out of focus. Run it only if `needsDepthOfField` is
/// true.
class DepthOfFieldPass {
public:
    void draw(
        const scene::SCNCamera& camera,
        const RenderTarget& scene, ///< its depth is read
        const FramePictures& pictures,
        const FullscreenPass::Tools& tools);

private:
    FullscreenPass pass{"depth_of_field.frag"};
    FullscreenPass passOfSamples{"depth_of_field.frag", {"MULTISAMPLED"}};
};

} // namespace zelvo::render
