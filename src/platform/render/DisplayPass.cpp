// SPDX-License-Identifier: MIT
#include "platform/render/DisplayPass.h"

#include <fmt/format.h>

#include <algorithm>

namespace zelvo::render {

void DisplayPass::draw(
    const Input& input, const RenderTarget& picture, const FullscreenPass::Tools& tools) {
    std::vector<std::string> defines{fmt::format("SAMPLES {}", input.light.samples())};
    if (input.hasToneMap)
        defines.emplace_back("TONE_MAP");
    if (input.glow != 0)
        defines.emplace_back("GLOW");
    if (input.light.samples() > 1 && input.takesNeighbours)
        defines.emplace_back("WIDE");
    const std::uint32_t light =
        input.light.samples() > 1 ? input.light.bits() : input.light.color();
    passFor(defines).run(tools, picture, {{kPictureUnit, light}, {kGlowUnit, input.glow}});
}

FullscreenPass& DisplayPass::passFor(const std::vector<std::string>& defines) {
    const auto found = std::ranges::find(variants, defines, &Variant::defines);
    if (found != variants.end())
        return found->pass;
    variants.push_back({defines, FullscreenPass("display.frag", defines)});
    return variants.back().pass;
}

} // namespace zelvo::render
