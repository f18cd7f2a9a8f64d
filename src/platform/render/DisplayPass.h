// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/EdgeLines.h"
#include "platform/render/FullscreenPass.h"

namespace zelvo::render {

/// Turns the light of a drawn scene into an encoded picture of the same size, with one colour for
/// each pixel: tone map, mean of the samples, encoding, dither.
class DisplayPass {
public:
    struct Input {
        const RenderTarget& light;
        bool hasToneMap;
        std::uint32_t glow; ///< the texture that BloomPass has made; 0: none
    };

    void draw(const Input& input, const RenderTarget& picture, const FullscreenPass::Tools& tools);

    /// Replaces the pixels of edges: instead of the mean of the samples, each side of an edge counts
    /// by its share of the pixel. After `draw`.
    void smoothEdges(
        const Input& input,
        const EdgeLines& lines,
        const RenderTarget& picture,
        const FullscreenPass::Tools& tools);

private:
    struct Variant {
        std::vector<std::string> defines;
        FullscreenPass display;
        FullscreenPass edges;
    };

    [[nodiscard]] Variant& variantFor(const Input& input);

    std::vector<Variant> variants;
};

} // namespace zelvo::render
