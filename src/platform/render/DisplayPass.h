// SPDX-License-Identifier: MIT
#pragma once

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
        /// Edges are smoothed by samples of neighbouring pixels, too. Not if the frame is drawn more
        /// than once, as the drawings are spread over the pixel then.
        bool takesNeighbours = true;
    };

    void draw(const Input& input, const RenderTarget& picture, const FullscreenPass::Tools& tools);

private:
    struct Variant {
        std::vector<std::string> defines;
        FullscreenPass pass;
    };

    [[nodiscard]] FullscreenPass& passFor(const std::vector<std::string>& defines);

    std::vector<Variant> variants; ///< each built when it is first needed
};

} // namespace zelvo::render
