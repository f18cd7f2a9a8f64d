// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/FullscreenPass.h"
#include "platform/scene/SCNCamera.h"

namespace zelvo::render {

/// Blurs what stands out of a camera's focus in a drawn picture. To be run where
/// `needsDepthOfField` says so.
class DepthOfFieldPass {
public:
    void draw(
        const scene::SCNCamera& camera,
        const FramePictures& pictures,
        const FullscreenPass::Tools& tools);

private:
    FullscreenPass pass{"depth_of_field.frag"};
};

} // namespace zelvo::render
