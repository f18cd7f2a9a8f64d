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

namespace {

/// Maps 0 .. 1 to 0 .. 65535.
std::uint16_t wordOf(float value) {
    return static_cast<std::uint16_t>(std::lround(std::clamp(value, 0.0f, 1.0f) * 65535));
}

/// The Sobel operator: the slope over two pixels, smoothed across.
glm::vec3 normalAt(const Field& relief, int x, int y, float depth) {
    const auto h = [&](int dx, int dy) { return relief.at(x + dx, y + dy); };
    const float right = h(1, -1) + 2 * h(1, 0) + h(1, 1) - h(-1, -1) - 2 * h(-1, 0) - h(-1, 1);
    const float up = h(-1, -1) + 2 * h(0, -1) + h(1, -1) - h(-1, 1) - 2 * h(0, 1) - h(1, 1);
    const float scale = depth * static_cast<float>(relief.width) / 8;
    return glm::normalize(glm::vec3(-right * scale, -up * scale, 1));
}

} // namespace

image::Image normalPicture(const Field& relief, float depth) {
    image::Image result(relief.width, relief.height);
    const int count = relief.width * relief.height;
    for (int i = 0; i < count; ++i) {
        const glm::vec3 normal = normalAt(relief, i % relief.width, i / relief.width, depth);
        const auto at = static_cast<std::size_t>(i) * 4;
        result.pixels[at] = byteOf(normal.x * 0.5f + 0.5f);
        result.pixels[at + 1] = byteOf(normal.y * 0.5f + 0.5f);
        result.pixels[at + 2] = byteOf(normal.z * 0.5f + 0.5f);
        result.pixels[at + 3] = 255;
        for (const float part : {normal.x, normal.y})
            result.fineNormals.push_back(wordOf(part * 0.5f + 0.5f));
    }
    return result;
}

} // namespace zelvo::bake
