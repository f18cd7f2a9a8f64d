// SPDX-License-Identifier: MIT
#pragma once

#include <glm/vec2.hpp>

#include <cstdint>
#include <span>
#include <vector>

namespace zelvo::render {

/// The mean of several drawings of one frame, in linear light. If all are the same, the mean is the
/// same, too, to the last bit.
class PassMean {
public:
    /// Starts a new mean of pictures with so many bytes, four of them a pixel.
    void start(std::size_t bytes);
    void add(std::span<const std::uint8_t> picture);
    /// Encodes the mean of what was added. Alpha is opaque.
    void write(std::vector<std::uint8_t>& picture) const;
    /// Encodes what was drawn on black, with straight alpha. `onWhite` is the mean of the same
    /// drawings on white: what lets white through is transparent. Light that adds to what is behind
    /// it has its brightness as alpha.
    void writeMatte(const PassMean& onWhite, std::vector<std::uint8_t>& picture) const;

private:
    std::vector<std::uint32_t> sums; ///< three a pixel
    std::uint32_t count = 0;
};

/// Where in a pixel drawing `index` looks: -0.5 to 0.5 from its middle, evenly spread for any number
/// of drawings.
[[nodiscard]] glm::vec2 shiftOf(int index);

} // namespace zelvo::render
