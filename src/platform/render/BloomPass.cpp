// SPDX-License-Identifier: MIT
#include "platform/render/BloomPass.h"

namespace zelvo::render {
namespace {

constexpr double kFirst = 0.25; ///< size of the first level, as a share of the picture's

std::vector<RenderTarget> targets(std::size_t count) {
    std::vector<RenderTarget> made;
    for (std::size_t i = 0; i < count; ++i)
        made.push_back({TargetFormat::half});
    return made;
}

} // namespace

BloomPass::BloomPass()
    : down(targets(kLevels))
    , up(targets(kLevels - 1)) {}

std::uint32_t BloomPass::draw(const RenderTarget& light, const FullscreenPass::Tools& tools) {
    double scale = kFirst;
    for (std::size_t i = 0; i < kLevels; ++i, scale /= 2) {
        const Size size = light.size().scaled(scale);
        down[i].resize(size, tools.state);
        if (i < up.size())
            up[i].resize(size, tools.state);
    }
    if (light.samples() > 1) {
        brightOfSamples.run(tools, down[0], {{kPictureUnit, light.bits()}});
    } else {
        bright.run(tools, down[0], {{kPictureUnit, light.color()}});
    }
    for (std::size_t i = 1; i < kLevels; ++i)
        shrink.run(tools, down[i], {{kPictureUnit, down[i - 1].color()}});
    const RenderTarget* smaller = &down.back();
    for (std::size_t i = up.size(); i-- > 0;) {
        grow.run(tools, up[i], {{kPictureUnit, smaller->color()}, {kGlowUnit, down[i].color()}});
        smaller = &up[i];
    }
    return smaller->color();
}

} // namespace zelvo::render
