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
        FullscreenPass pass;
    };

    struct EdgeVariant {
        std::vector<std::string> defines;
        ProgramHandle program;
    };

    [[nodiscard]] FullscreenPass& passFor(const std::vector<std::string>& defines);
    [[nodiscard]] std::uint32_t edgeProgramFor(const std::vector<std::string>& defines);

    // Each is built when it is first needed.
    std::vector<Variant> variants;
    std::vector<EdgeVariant> edgeVariants;
};

} // namespace zelvo::render
