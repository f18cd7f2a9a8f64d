// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/image/Color.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
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

/// The largest picture that is loaded: sides above kMaxSide are scaled down on load; a file that
/// claims more than kMaxPixels is refused.
inline constexpr int kMaxSide = 4096;
inline constexpr std::int64_t kMaxPixels = 400'000'000;

/// Loads a picture file: the format is told by its content, its EXIF orientation is applied, its
/// colours become sRGB. Errors: notFound, unreadable, malformed, tooLarge.
[[nodiscard]] foundation::Result<ImagePtr> loadImage(const std::filesystem::path& file);

/// The same for a file's bytes in memory.
[[nodiscard]] foundation::Result<ImagePtr> decodeImage(std::span<const std::uint8_t> bytes);

/// The resource picture of that name, with its light probe where one was baked
/// ("Environment001.jpg" has "Environment001.jpg.probe" beside it). Absent (null) if there is none
/// or it cannot be read (said on the console); kept, so the same name gives the same object. Any
/// thread.
[[nodiscard]] ImagePtr imageNamed(const std::string& name);

/// Writes a PNG. Errors: unwritable.
[[nodiscard]] foundation::Result<void>
savePNG(const Image& image, const std::filesystem::path& file);

/// Writes a JPEG with little loss; the alpha is dropped. Errors: unwritable.
[[nodiscard]] foundation::Result<void>
saveJPEG(const Image& image, const std::filesystem::path& file);

/// The picture as a mask filled with the colour: its alpha is kept, its colours are replaced.
[[nodiscard]] Image tinted(const Image& image, const Color& color);

} // namespace zelvo::image
