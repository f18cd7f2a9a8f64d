// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/Size.h"

#include <cstdint>
#include <span>
#include <vector>

namespace zelvo::render {

/// Scales a drawn picture down on the CPU: every output pixel is the mean of the area it covers, in
/// linear light approximated by the square of the encoded value, which keeps flat colours exact.
/// The shader's counterpart is resolve.frag.
class AreaResampler {
public:
    /// Output sides are at most the drawn ones.
    AreaResampler(Size drawnSize, Size outputSize);

    [[nodiscard]] Size outputSize() const { return output; }

    /// Drawn pixels: 4 bytes each, rows from the top without gaps. Writes the output's row y the
    /// same way; alpha 255.
    void writeRow(std::span<const std::uint8_t> pixels, int y, std::uint8_t* row);

private:
    /// What one output pixel takes of the drawn ones along one axis.
    struct Taps {
        int first = 0;
        int count = 0;
        int firstWeight = 0; ///< index into the weights
    };

    struct Axis {
        std::vector<Taps> taps;
        std::vector<float> weights; ///< of one output pixel they add up to 1
    };

    [[nodiscard]] static Axis makeAxis(int from, int to);

    Size drawn;
    Size output;
    Axis horizontal;
    Axis vertical;
    std::vector<float> sums; ///< one drawn row, 4 channels, squared and weighed over the rows
};

} // namespace zelvo::render
