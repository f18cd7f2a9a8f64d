// SPDX-License-Identifier: MIT
#include "platform/render/TechniquePasses.h"

#include "platform/foundation/Check.h"
#include "platform/foundation/Console.h"

#include <fmt/format.h>

#include <cstddef>
#include <utility>

namespace zelvo::render {

namespace {

/// Nothing if the shader is broken, which is logged.
std::optional<FullscreenPass> buildFunction(const scene::SCNTechnique::Pass& pass) {
    // All passes with the same function have the same uniforms in the same order.
    CHECK(pass.uniforms.size() <= 4, "{} has too many uniforms", pass.function);
    std::vector<std::string> defines{pass.function};
    for (std::size_t i = 0; i < pass.uniforms.size(); ++i)
        defines.push_back(fmt::format("{} passNumbers[0][{}]", pass.uniforms[i].name, i));
    std::optional<FullscreenPass> made(std::in_place, "technique.frag", std::move(defines));
    if (auto built = made->prepare(); !built) {
        foundation::logLine(fmt::format(
            "the technique's {} is not drawn: {}", pass.function, built.error().message));
        made.reset();
    }
    return made;
}

} // namespace

void TechniquePasses::draw(
    const scene::SCNTechniquePtr& technique,
    const FramePictures& pictures,
    double time,
    const FullscreenPass::Tools& tools) {
    if (technique != planned)
        plan(technique);
    for (std::size_t i = 0; i < technique->targets.size(); ++i)
        targets[i].resize(pictures.picture.size().scaled(technique->targets[i]), tools.state);
    PassBlock block;
    block.passFrame.x = static_cast<float>(time);
    for (const Step& step : steps) {
        const auto surface = [&](int index, const RenderTarget& ofFrame) -> const RenderTarget& {
            return index == scene::SCNTechnique::kColor ? ofFrame
                                                        : targets[static_cast<std::size_t>(index)];
        };
        const RenderTarget& input = surface(step.input, pictures.picture);
        const RenderTarget& output = surface(step.output, pictures.spare);
        block.passNumbers[0] = step.numbers;
        step.function->run(tools, output, {{kPictureUnit, input.color()}}, block);
        if (step.output == scene::SCNTechnique::kColor)
            pictures.exchange();
    }
}

void TechniquePasses::plan(const scene::SCNTechniquePtr& technique) {
    planned = technique;
    while (targets.size() < technique->targets.size())
        targets.push_back({TargetFormat::half}); // soft gradients have no steps
    steps.clear();
    for (const scene::SCNTechnique::Pass& pass : technique->passes) {
        FullscreenPass* const found = function(pass);
        if (found == nullptr)
            continue;
        Step step{found, pass.input, pass.output, glm::vec4(0)};
        for (std::size_t i = 0; i < pass.uniforms.size(); ++i)
            step.numbers[static_cast<glm::length_t>(i)] = pass.uniforms[i].value;
        steps.push_back(step);
    }
}

FullscreenPass* TechniquePasses::function(const scene::SCNTechnique::Pass& pass) {
    const auto [entry, isNew] = functions.try_emplace(pass.function);
    if (isNew)
        entry->second = buildFunction(pass);
    return entry->second ? &*entry->second : nullptr;
}

} // namespace zelvo::render
