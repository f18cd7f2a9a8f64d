// SPDX-License-Identifier: MIT
#pragma once

#include "platform/image/Image.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace zelvo::image {

/// Reads up to `count` bytes at a place in a file; fewer at its end.
using FileReader = std::function<std::vector<std::uint8_t>(std::int64_t at, std::size_t count)>;

/// The orientation stored in a PNG or WebP, as a number of Exif 2.3 (tag 274): 1 to 8. Upright (1)
/// if nothing is stored, and for other files.
[[nodiscard]] unsigned storedOrientation(const FileReader& file);

/// The picture turned upright.
[[nodiscard]] Image upright(const Image& stored, unsigned orientation);

} // namespace zelvo::image
