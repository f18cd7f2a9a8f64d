// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/image/Color.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <vector>

namespace zelvo::image {

class LightProbe;

/// A picture: RGBA with 8 bits a component, straight alpha, rows from the top without gaps. Not
/// changed any more once it is shared.
struct Image {
    int width = 0;
    int height = 0;
    /// 4 * width * height bytes; none where a resource has fine normals.
    std::vector<std::uint8_t> pixels;

    /// A normal map's x and y in 16 bits, -1 to 1 as 0 to 65535: eight bits would show as steps in
    /// reflections. 2 * width * height values, or none.
    std::vector<std::uint16_t> fineNormals;

    /// Image-based light, baked from this picture; null if the picture is not an environment.
    std::shared_ptr<const LightProbe> lightProbe;

    Image() = default;

    /// Black and fully transparent.
    Image(int columns, int rows)
        : width(columns)
        , height(rows)
        , pixels(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows) * 4U) {}
};

using ImagePtr = std::shared_ptr<const Image>;

/// Writes `fineNormals` without compression, so that the program starts quickly. Error: `unwritable`.
[[nodiscard]] foundation::Result<void>
saveFineNormals(const Image& image, const std::filesystem::path& file);

/// Reads what saveFineNormals wrote for this picture. Errors: `notFound`, `malformed` (wrong size).
[[nodiscard]] foundation::Result<void>
loadFineNormals(Image& image, const std::filesystem::path& file);

/// Writes a PNG. Error: `unwritable`.
[[nodiscard]] foundation::Result<void>
savePNG(const Image& image, const std::filesystem::path& file);

/// Writes a JPEG of high quality, without alpha. Error: `unwritable`.
[[nodiscard]] foundation::Result<void>
saveJPEG(const Image& image, const std::filesystem::path& file);

/// Replaces all colours by this one and keeps the alpha.
[[nodiscard]] Image tinted(const Image& image, const Color& color);

} // namespace zelvo::image
