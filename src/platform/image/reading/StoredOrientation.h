// SPDX-License-Identifier: MIT
#pragma once

#include "platform/image/Image.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace zelvo::image {

/// Up to that many bytes from a place in a file; fewer where it ends.
using FileReader = std::function<std::vector<std::uint8_t>(std::int64_t at, std::size_t count)>;

/// How a PNG or WebP says that its picture is to be turned, as Exif 2.3 numbers it (tag 274): 1 to
/// 8, 1 for upright, for nothing said and for any other file.
[[nodiscard]] unsigned storedOrientation(const FileReader& file);

/// The picture as it is to be seen.
[[nodiscard]] Image upright(const Image& stored, unsigned orientation);

} // namespace zelvo::image
