// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/image/reading/Extent.h"

#include <cstdint>
#include <span>
#include <vector>

namespace zelvo::image {

/// A drawing is drawn as large as fits into this size, whatever size it claims. This is the frame
/// of a 4K movie: where the whole picture is in view, it never has fewer pixels than the movie.
inline constexpr Extent kDrawingSize{3840, 2160};

/// A drawing as cairo makes it: rows from the top without gaps; a pixel is a number 0xAARRGGBB,
/// premultiplied.
struct Drawing {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;
};

/// What the helper program writes before the pixels.
struct DrawingHeader {
    std::int32_t width = 0;
    std::int32_t height = 0;
};

/// Draws an SVG file in this process, without limits of time and memory. Other files that it names
/// are not read. Error: `malformed`.
[[nodiscard]] foundation::Result<Drawing> drawSVG(std::span<const std::uint8_t> file);

} // namespace zelvo::image
