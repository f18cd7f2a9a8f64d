// SPDX-License-Identifier: MIT
#include "platform/render/DisplayPass.h"

#include <fmt/format.h>

#include <algorithm>

namespace zelvo::render {

void DisplayPass::draw(
    const Input& input, const RenderTarget& picture, const FullscreenPass::Tools& tools) {
    passFor(input.light.samples(), input.hasToneMap)
        .run(tools, picture, {{kPictureUnit, input.light.color()}});
}

FullscreenPass& DisplayPass::passFor(int samples, bool hasToneMap) {
    const auto found = std::ranges::find_if(variants, [&](const Variant& variant) {
        return variant.samples == samples && variant.hasToneMap == hasToneMap;
    });
    if (found != variants.end())
        return found->pass;
    std::vector<std::string> defines{fmt::format("SAMPLES {}", samples)};
    if (hasToneMap)
        defines.emplace_back("TONE_MAP");
    variants.push_back({samples, hasToneMap, FullscreenPass("display.frag", std::move(defines))});
    return variants.back().pass;
}

} // namespace zelvo::render
