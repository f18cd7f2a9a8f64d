// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/image/Image.h"

#include <cstdint>
#include <filesystem>
#include <span>

namespace zelvo::image {

/// The largest picture that is loaded: sides above kMaxSide are scaled down on load; a file that
/// claims more than kMaxPixels is refused.
inline constexpr int kMaxSide = 4096;
inline constexpr std::int64_t kMaxPixels = 400'000'000;

/// Loads a picture file: the format is told by its content, its EXIF orientation is applied, its
/// colours become sRGB. Errors: notFound, unreadable, malformed, tooLarge.
[[nodiscard]] foundation::Result<ImagePtr> loadImage(const std::filesystem::path& file);

/// The same for a file's bytes in memory.
[[nodiscard]] foundation::Result<ImagePtr> decodeImage(std::span<const std::uint8_t> bytes);

} // namespace zelvo::image
