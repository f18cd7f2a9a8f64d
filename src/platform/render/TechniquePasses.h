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
    /// `time` in scene seconds: the same picture at the same time, live and in an export.
    void draw(
        const scene::SCNTechniquePtr& technique,
        const FramePictures& pictures,
        double time,
        const FullscreenPass::Tools& tools);

private:
    /// A pass whose function was found.
    struct Step {
        FullscreenPass* function;
        int input;
        int output;
        glm::vec4 numbers;
    };

    void plan(const scene::SCNTechniquePtr& technique);
    /// Null if the function cannot be built, which is told once.
    [[nodiscard]] FullscreenPass* function(const scene::SCNTechnique::Pass& pass);

    scene::SCNTechniquePtr planned; ///< held, so that its address does not come back for another
    std::vector<Step> steps;
    std::vector<RenderTarget> targets;
    std::map<std::string, std::optional<FullscreenPass>> functions;
};

} // namespace zelvo::render
