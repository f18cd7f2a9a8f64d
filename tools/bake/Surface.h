// SPDX-License-Identifier: MIT
#pragma once

#include "Field.h"
#include "platform/image/Image.h"

#include <glm/vec3.hpp>
#include <glm/vec4.hpp>

// Turns fields of numbers into pictures.

namespace zelvo::bake {

/// Maps 0 .. 1 to 0 .. 255.
[[nodiscard]] std::uint8_t byteOf(float value);

/// Opaque grey. 0 .. 1 becomes 0 .. 255 without a transfer function (data).
[[nodiscard]] image::Image greyPicture(const Field& field);

/// The normals of a relief: +x right, +y up, +z towards the viewer, each from -1 .. 1 to 0 .. 255.
/// They are stored in 16 bits, too (`fineNormals`). `depth` is the height of the value 1, as a share of the tile's width.
[[nodiscard]] image::Image normalPicture(const Field& relief, float depth);

/// A picture from a function of the coordinates (0 to 1, rows from the top) that returns RGBA, 0 to
/// 1.
template <class Function>
[[nodiscard]] image::Image picture(int width, int height, Function function) {
    image::Image result(width, height);
    std::size_t at = 0;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const glm::vec4 colour = function((glm::vec2(x, y) + 0.5f) / glm::vec2(width, height));
            for (int i = 0; i < 4; ++i)
                result.pixels[at++] = byteOf(colour[i]);
        }
    }
    return result;
}

} // namespace zelvo::bake
