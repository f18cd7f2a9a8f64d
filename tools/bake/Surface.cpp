// SPDX-License-Identifier: MIT
#include "Surface.h"

#include <glm/geometric.hpp>

#include <algorithm>
#include <cmath>

namespace zelvo::bake {

std::uint8_t byteOf(float value) {
    return static_cast<std::uint8_t>(std::lround(std::clamp(value, 0.0f, 1.0f) * 255));
}

image::Image greyPicture(const Field& field) {
    image::Image result(field.width, field.height);
    for (std::size_t i = 0; i < field.values.size(); ++i) {
        const std::uint8_t grey = byteOf(field.values[i]);
        for (std::size_t c = 0; c < 3; ++c)
            result.pixels[i * 4 + c] = grey;
        result.pixels[i * 4 + 3] = 255;
    }
    return result;
}

image::Image normalPicture(const Field& relief, float depth) {
    // Sobel's operator: the slope over two places, smoothed across.
    const float scale = depth * static_cast<float>(relief.width) / 8;
    image::Image result(relief.width, relief.height);
    std::size_t at = 0;
    for (int y = 0; y < relief.height; ++y) {
        for (int x = 0; x < relief.width; ++x) {
            const auto h = [&](int dx, int dy) { return relief.at(x + dx, y + dy); };
            const float right =
                h(1, -1) + 2 * h(1, 0) + h(1, 1) - h(-1, -1) - 2 * h(-1, 0) - h(-1, 1);
            const float up = h(-1, -1) + 2 * h(0, -1) + h(1, -1) - h(-1, 1) - 2 * h(0, 1) - h(1, 1);
            const glm::vec3 normal = glm::normalize(glm::vec3(-right * scale, -up * scale, 1));
            for (int i = 0; i < 3; ++i)
                result.pixels[at++] = byteOf(normal[i] * 0.5f + 0.5f);
            result.pixels[at++] = 255;
        }
    }
    return result;
}

} // namespace zelvo::bake
