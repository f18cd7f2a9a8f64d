// SPDX-License-Identifier: MIT
#include "platform/render/DisplayPass.h"

#include "platform/foundation/Check.h"
#include "platform/render/ShaderProgram.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

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
    passFor(definesOf(input))
        .run(tools, picture, {{kPictureUnit, lightOf(input)}, {kGlowUnit, input.glow}});
}

void DisplayPass::smoothEdges(
    const Input& input,
    const EdgeLines& lines,
    const RenderTarget& picture,
    const FullscreenPass::Tools& tools) {
    // `draw` has left the picture, its textures and its uniforms bound.
    picture.bind(tools.state);
    tools.state.set(
        {.depthTest = DepthTest::off, .depthWrite = DepthWrite::off, .culling = Culling::none});
    tools.state.bindTexture(kLineUnit, lines.nearest(), 0);
    tools.state.bindTexture(kSecondLineUnit, lines.secondNearest(), 0);
    tools.state.useProgram(edgeProgramFor(definesOf(input)));
    lines.drawQuads(tools.state);
}

FullscreenPass& DisplayPass::passFor(const std::vector<std::string>& defines) {
    const auto found = std::ranges::find(variants, defines, &Variant::defines);
    if (found != variants.end())
        return found->pass;
    variants.push_back({defines, FullscreenPass("display.frag", defines)});
    return variants.back().pass;
}

std::uint32_t DisplayPass::edgeProgramFor(const std::vector<std::string>& defines) {
    const auto found = std::ranges::find(edgeVariants, defines, &EdgeVariant::defines);
    if (found != edgeVariants.end())
        return found->program.name();
    auto built = buildProgram({"edge_lines.vert", "smooth_edges.frag", defines});
    CHECK(built.has_value(), "{}", built.error().message);
    edgeVariants.push_back({defines, std::move(*built)});
    return edgeVariants.back().program.name();
}

} // namespace zelvo::render
