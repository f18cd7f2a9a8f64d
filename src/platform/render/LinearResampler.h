// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/Size.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace zelvo::render {

/// Scales a picture on the CPU, usually up: every output pixel is interpolated between the four
/// nearest ones. Encoded values are mixed, as a plain blit on the GPU does.
class LinearResampler {
public:
    LinearResampler(Size from, Size to);

    [[nodiscard]] Size outputSize() const { return output; }

    /// Both pictures have 4 bytes a pixel and rows from the top without gaps. `result` has room for
    /// the output.
    void write(std::span<const std::uint8_t> pixels, std::uint8_t* result);

private:
    /// The two source pixels around an output pixel, along one axis.
    struct Between {
        std::size_t lower;
        std::size_t upper;
        std::uint32_t share; ///< of the upper one, in 256ths
    };

    /// A source row as wide as the output.
    struct Row {
        std::size_t source;
        std::vector<std::uint16_t> values; ///< 256 times as large
    };

    [[nodiscard]] static std::vector<Between> makeAxis(int from, int to);
    [[nodiscard]] const Row& widened(std::span<const std::uint8_t> pixels, std::size_t source);

    Size drawn;
    Size output;
    std::vector<Between> columns;
    std::vector<Between> rows;
    std::array<Row, 2> widenedRows; ///< by turns
};

} // namespace zelvo::render
