// SPDX-License-Identifier: MIT
#include "platform/render/DisplayPass.h"

#include <fmt/format.h>

#include <algorithm>

namespace zelvo::render {
namespace {

std::vector<std::string> definesOf(const DisplayPass::Input& input) {
    std::vector<std::string> defines{fmt::format("SAMPLES {}", input.light.samples())};
    if (input.hasToneMap)
        defines.emplace_back("TONE_MAP");
    if (input.glow != 0)
        defines.emplace_back("GLOW");
    return defines;
}

std::uint32_t lightOf(const DisplayPass::Input& input) {
    return input.light.samples() > 1 ? input.light.bits() : input.light.color();
}

} // namespace

void DisplayPass::draw(
    const Input& input, const RenderTarget& picture, const FullscreenPass::Tools& tools) {
    variantFor(input).display.run(
        tools, picture, {{kPictureUnit, lightOf(input)}, {kGlowUnit, input.glow}});
}

void DisplayPass::smoothEdges(
    const Input& input,
    const EdgeLines& lines,
    const RenderTarget& picture,
    const FullscreenPass::Tools& tools) {
    variantFor(input).edges.runOn(
        lines.quads(),
        tools,
        picture,
        {{kPictureUnit, lightOf(input)},
         {kGlowUnit, input.glow},
         {kLineUnit, lines.nearest()},
         {kSecondLineUnit, lines.secondNearest()}});
}

DisplayPass::Variant& DisplayPass::variantFor(const Input& input) {
    const std::vector<std::string> defines = definesOf(input);
    const auto found = std::ranges::find(variants, defines, &Variant::defines);
    if (found != variants.end())
        return *found;
    variants.push_back(
        {defines,
         FullscreenPass("display.frag", defines),
         FullscreenPass("smooth_edges.frag", defines, "edge_lines.vert")});
    return variants.back();
}

} // namespace zelvo::render
