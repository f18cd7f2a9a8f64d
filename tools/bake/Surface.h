// SPDX-License-Identifier: MIT
#pragma once

#include "Field.h"
#include "platform/image/Image.h"

#include <glm/vec3.hpp>
#include <glm/vec4.hpp>

// From numbers to pictures.

namespace zelvo::bake {

/// A byte for 0 to 1.
[[nodiscard]] std::uint8_t byteOf(float value);

/// Opaque grey; 0 to 1 becomes 0 to 255 as it is (data, no transfer function).
[[nodiscard]] image::Image greyPicture(const Field& field);

/// Normals of a relief, +x to the right, +y up the picture, +z towards the viewer, each from -1..1
/// to 0..255. `depth` is the height that 1 in the field stands for, as a share of the tile's width.
[[nodiscard]] image::Image normalPicture(const Field& relief, float depth);

/// A picture of a function from coordinates (0 to 1, rows from the top) to RGBA of 0 to 1.
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
