// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/image/Image.h"

#include <cstdint>
#include <filesystem>
#include <span>

namespace zelvo::image {

/// Pictures with a side above kMaxSide are scaled down when loaded. Files with more than kMaxPixels
/// are refused.
inline constexpr int kMaxSide = 4096;
inline constexpr std::int64_t kMaxPixels = 400'000'000;

/// Loads a picture file: detects the format by content, applies the EXIF orientation and converts
/// to sRGB. Errors: `notFound`, `unreadable`, `malformed`, `tooLarge`.
[[nodiscard]] foundation::Result<ImagePtr> loadImage(const std::filesystem::path& file);

/// The same for a file in memory.
[[nodiscard]] foundation::Result<ImagePtr> decodeImage(std::span<const std::uint8_t> bytes);

} // namespace zelvo::image
