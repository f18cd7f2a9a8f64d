// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/image/Image.h"
#include "platform/image/reading/AreaScaler.h"

#include <cstdint>
#include <span>

namespace zelvo::image {

/// A drawing is drawn as large as fits into this size, whatever size it claims. This is the frame
/// of a 4K movie: where the whole picture is in view, it never has fewer pixels than the movie.
inline constexpr Extent kDrawingSize{3840, 2160};

/// Whether a file that begins so may be an SVG drawing, plain or compressed with gzip.
[[nodiscard]] bool isSVG(std::span<const std::uint8_t> start);

/// Draws an SVG file. Other files that it names are not read. Errors: `malformed`, `tooLarge`.
[[nodiscard]] foundation::Result<ImagePtr> readSVG(std::span<const std::uint8_t> file);

} // namespace zelvo::image
