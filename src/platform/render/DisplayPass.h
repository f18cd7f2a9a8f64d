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
    };

    void draw(const Input& input, const RenderTarget& picture, const FullscreenPass::Tools& tools);

private:
    struct Variant {
        int samples;
        bool hasToneMap;
        FullscreenPass pass;
    };

    [[nodiscard]] FullscreenPass& passFor(int samples, bool hasToneMap);

    std::vector<Variant> variants; ///< each built when it is first needed
};

} // namespace zelvo::render
