// SPDX-License-Identifier: MIT
#pragma once

#include "platform/media/PixelBuffer.h"

#include <cstdint>
#include <vector>

namespace zelvo::media {

/// Gives transparent pixels the colours of visible ones nearby.
///
/// Nobody sees the colour of a transparent pixel, but a codec mixes it into its neighbours: black
/// around a bright letter would become a dark fringe.
class ColorBleed {
public:
    /// Changes only pixels with alpha 0. Their alpha stays.
    void fill(PixelBuffer& picture);

private:
    /// The pictures of half the size, of a quarter, and so on. Kept for the next picture.
    std::vector<std::vector<std::uint32_t>> halves;
};

} // namespace zelvo::media
