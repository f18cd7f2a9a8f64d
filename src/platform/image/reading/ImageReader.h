// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/image/Image.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <span>

namespace zelvo::image {

/// Pictures with a side above kMaxSide are scaled down when loaded. Files with more than kMaxPixels
/// are refused.
inline constexpr int kMaxSide = 4096;
inline constexpr std::int64_t kMaxPixels = 400'000'000;

/// Asked while a picture is read, on the same thread: whether nobody waits for it any more. May be
/// empty.
using IsStopped = std::function<bool()>;

/// Loads a picture file: detects the format by content, applies the EXIF orientation and converts
/// to sRGB. Of an animated picture, the first one. An SVG drawing is drawn at kDrawingSize
/// (SVGDrawing.h). Errors: `notFound`, `unreadable`, `malformed`, `tooLarge`, `unavailable`. A large
/// picture takes seconds: once it is stopped, the reading ends with the cause `cancelled`.
[[nodiscard]] foundation::Result<ImagePtr>
loadImage(const std::filesystem::path& file, const IsStopped& isStopped = {});

/// The same for a file in memory.
[[nodiscard]] foundation::Result<ImagePtr>
decodeImage(std::span<const std::uint8_t> bytes, const IsStopped& isStopped = {});

} // namespace zelvo::image
