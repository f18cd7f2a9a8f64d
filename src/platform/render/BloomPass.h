// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/FullscreenPass.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace zelvo::render {

/// Makes the glow around what is brighter than white, as a lens does: the light above white, blurred
/// over several widths. It starts at a quarter of the size, so it costs little.
class BloomPass {
public:
    BloomPass();

    /// Returns the texture of the glow, linear, to be added to the light. It is smaller than the
    /// picture: sample it smoothly.
    [[nodiscard]] std::uint32_t draw(const RenderTarget& light, const FullscreenPass::Tools& tools);

private:
    /// Each half the size of the one before. The widest blur reaches an eighth of the height.
    static constexpr std::size_t kLevels = 5;

    FullscreenPass bright{"bloom.frag", {"BRIGHT", "SAMPLES 1"}};
    FullscreenPass brightOfSamples{"bloom.frag", {"BRIGHT", "SAMPLES 4"}};
    FullscreenPass shrink{"bloom.frag", {"SHRINK"}};
    FullscreenPass grow{"bloom.frag", {"GROW"}};
    std::vector<RenderTarget> down; ///< light above white, ever smaller
    std::vector<RenderTarget> up;   ///< the same, with the blurs of the smaller ones added
};

} // namespace zelvo::render
