// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/FullscreenPass.h"
#include "platform/scene/SCNTechnique.h"

#include <glm/vec4.hpp>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace zelvo::render {

/// Draws the passes of a technique over a finished picture.
class TechniquePasses {
public:
    /// `time` is scene time in seconds: live view and export show the same at the same time.
    void draw(
        const scene::SCNTechniquePtr& technique,
        const FramePictures& pictures,
        double time,
        const FullscreenPass::Tools& tools);

private:
    /// One pass of the technique, ready to run.
    struct Step {
        FullscreenPass* function;
        int input;
        int output;
        glm::vec4 numbers;
    };

    void plan(const scene::SCNTechniquePtr& technique);
    /// Null if the shader cannot be built; this is reported once.
    [[nodiscard]] FullscreenPass* function(const scene::SCNTechnique::Pass& pass);

    scene::SCNTechniquePtr planned; ///< held, so that no new technique can get its address
    std::vector<Step> steps;
    std::vector<RenderTarget> targets;
    std::map<std::string, std::optional<FullscreenPass>> functions;
};

} // namespace zelvo::render
