// SPDX-License-Identifier: MIT
#pragma once

#include "platform/image/Image.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>

// Pictures and picture files made for one test.

namespace zelvo::image {

/// Four quarters, from the top left, row by row: red, green, blue, half transparent white.
inline Image quartered(int width, int height) {
    using Pixel = std::array<std::uint8_t, 4>;
    constexpr std::array<Pixel, 4> kColours{
        {{255, 0, 0, 255}, {0, 255, 0, 255}, {0, 0, 255, 255}, {255, 255, 255, 128}}};
    Image image(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const std::size_t quarter = (y * 2 >= height ? 2U : 0U) + (x * 2 >= width ? 1U : 0U);
            const int at = (y * width + x) * 4;
            std::ranges::copy(kColours.at(quarter), image.pixels.begin() + at);
        }
    }
    return image;
}

/// A TGA of 4 x 2 in runs: below, three times red and half transparent green; above, two of each of
/// blue and white.
inline std::vector<std::uint8_t> runsInTGA() {
    std::vector<std::uint8_t> bytes{0, 0, 10, 0, 0, 0, 0, 0, 0, 0, 0, 0, 4, 0, 2, 0, 32, 8};
    for (const auto& part : std::to_array<std::array<std::uint8_t, 5>>(
             {{0x82, 0, 0, 255, 255},
              {0x00, 0, 255, 0, 128},
              {0x81, 255, 0, 0, 255},
              {0x81, 255, 255, 255, 255}}))
        bytes.insert(bytes.end(), part.begin(), part.end());
    return bytes;
}

inline std::vector<std::uint8_t> bytesOf(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

} // namespace zelvo::image
