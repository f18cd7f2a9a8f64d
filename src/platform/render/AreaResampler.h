// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/Size.h"

#include <cstdint>
#include <span>
#include <vector>

namespace zelvo::render {

/// Scales a drawn picture down on the CPU. Every output pixel is the mean of the area it covers, in
/// linear light. Light is approximated by the square of the encoded value, so flat colours stay
/// exact. resolve.frag does the same on the GPU.
class AreaResampler {
public:
    /// The output must not be wider or higher than the drawn picture.
    AreaResampler(Size drawnSize, Size outputSize);

    [[nodiscard]] Size outputSize() const { return output; }

    /// Computes row `y` of the output. Both pictures have 4 bytes a pixel and rows from the top
    /// without gaps. Alpha is written as 255.
    void writeRow(std::span<const std::uint8_t> pixels, int y, std::uint8_t* row);

private:
    /// The drawn pixels that one output pixel is made of, along one axis.
    struct Taps {
        int first = 0;
        int count = 0;
        int firstWeight = 0; ///< index into the weights
    };

    struct Axis {
        std::vector<Taps> taps;
        std::vector<float> weights; ///< those of one output pixel add up to 1
    };

    [[nodiscard]] static Axis makeAxis(int from, int to);

    Size drawn;
    Size output;
    Axis horizontal;
    Axis vertical;
    /// one drawn row: 4 channels a pixel, squared, weighted sum over the rows
    std::vector<float> sums;
};

} // namespace zelvo::render
