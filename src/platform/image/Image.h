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

/// A picture: rows from top to bottom, RGBA, 8 bits a component, straight alpha, no padding.
/// Immutable once shared.
struct Image {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> pixels; ///< 4 * width * height bytes

    /// Image-based light made of this picture when resources were baked; absent for pictures that
    /// are no environment.
    std::shared_ptr<const LightProbe> lightProbe;

    Image() = default;

    /// Black and fully transparent.
    Image(int columns, int rows)
        : width(columns)
        , height(rows)
        , pixels(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows) * 4U) {}
};

using ImagePtr = std::shared_ptr<const Image>;

/// Writes a PNG. Errors: unwritable.
[[nodiscard]] foundation::Result<void>
savePNG(const Image& image, const std::filesystem::path& file);

/// Writes a JPEG with little loss; the alpha is dropped. Errors: unwritable.
[[nodiscard]] foundation::Result<void>
saveJPEG(const Image& image, const std::filesystem::path& file);

/// The picture as a mask filled with the colour: its alpha is kept, its colours are replaced.
[[nodiscard]] Image tinted(const Image& image, const Color& color);

} // namespace zelvo::image
