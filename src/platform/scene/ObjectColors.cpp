// SPDX-License-Identifier: MIT
#include "platform/scene/ObjectColors.h"

#include "platform/image/Color.h"
#include "platform/image/reading/ImageReader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

namespace zelvo::scene {

namespace {

using Color = glm::u8vec4;

[[nodiscard]] std::uint32_t packed(const Color& color) {
    return std::uint32_t{color.r} << 24U | std::uint32_t{color.g} << 16U |
           std::uint32_t{color.b} << 8U | color.a;
}

/// The mean of a triangle's corners.
[[nodiscard]] Color meanOf(const object::Piece& piece, std::size_t first) {
    glm::uvec4 sum(1); // rounds
    for (std::size_t i = first; i < first + 3; ++i)
        sum += glm::uvec4(piece.colors[piece.mesh.indices[i]]);
    return sum / 3U;
}

[[nodiscard]] std::uint8_t tinted(std::uint8_t value, float factor) {
    const float linear = image::linearFromSRGB(static_cast<float>(value) / 255.0F) * factor;
    return static_cast<std::uint8_t>(
        std::lround(image::sRGBFromLinear(std::clamp(linear, 0.0F, 1.0F)) * 255.0F));
}

/// The colours in rows, the last one filled up with black.
[[nodiscard]] image::ImagePtr
paletteOf(const std::vector<Color>& colors, int width, const glm::vec3& factor) {
    const auto columns = static_cast<std::size_t>(width);
    const auto rows = static_cast<int>((colors.size() + columns - 1) / columns);
    auto picture = std::make_shared<image::Image>(width, rows);
    for (std::size_t i = 0; i < colors.size(); ++i) {
        for (int part = 0; part < 3; ++part)
            picture->pixels[i * 4 + static_cast<std::size_t>(part)] =
                tinted(colors[i][part], factor[part]);
        picture->pixels[i * 4 + 3] = colors[i].a;
    }
    return picture;
}

} // namespace

image::ImagePtr takeColors(object::Piece& piece, const glm::vec3& factor) {
    geometry::Mesh& mesh = piece.mesh;
    std::vector<Color> palette;
    std::unordered_map<std::uint32_t, std::size_t> places; // in the palette, by packed colour
    std::vector<std::size_t> ofTriangle;
    constexpr std::size_t kMaxColors = std::size_t{image::kMaxSide} * image::kMaxSide;
    for (std::size_t i = 0; i + 2 < mesh.indices.size(); i += 3) {
        const Color color = meanOf(piece, i);
        const auto [entry, isNew] = places.try_emplace(packed(color), palette.size());
        if (isNew && palette.size() < kMaxColors)
            palette.push_back(color);
        ofTriangle.push_back(std::min(entry->second, palette.size() - 1));
    }
    const auto side = std::ceil(std::sqrt(static_cast<double>(palette.size())));
    const int width = std::max(1, static_cast<int>(side));
    const image::ImagePtr picture = paletteOf(palette, width, factor);

    // A vertex belongs to the colour that came first; others get a copy.
    constexpr std::size_t kNone = ~std::size_t{0};
    std::vector<std::size_t> ofVertex(mesh.vertices.size(), kNone);
    std::unordered_map<std::uint64_t, std::uint32_t> copies;
    for (std::size_t i = 0; i < ofTriangle.size() * 3; ++i) {
        const std::size_t color = ofTriangle[i / 3];
        std::uint32_t& index = mesh.indices[i];
        if (ofVertex[index] != kNone && ofVertex[index] != color) {
            const auto added = static_cast<std::uint32_t>(mesh.vertices.size());
            const auto [copy, isNew] =
                copies.try_emplace(std::uint64_t{index} << 32U | color, added);
            if (isNew) {
                const geometry::Vertex vertex = mesh.vertices[index];
                mesh.vertices.push_back(vertex);
                ofVertex.push_back(kNone);
            }
            index = copy->second;
        }
        ofVertex[index] = color;
        const auto columns = static_cast<std::size_t>(width);
        mesh.vertices[index].uv = {
            (static_cast<float>(color % columns) + 0.5F) / static_cast<float>(width),
            (static_cast<float>(color / columns) + 0.5F) / static_cast<float>(picture->height)};
    }
    piece.colors.clear();
    return picture;
}

} // namespace zelvo::scene
