// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/image/Image.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace zelvo::image {

inline constexpr std::size_t kTGAHeaderBytes = 18;

/// Whether these are the first bytes of a TGA picture. The format has no mark of its own, so the
/// header's numbers must fit together.
[[nodiscard]] bool isTGA(std::span<const std::uint8_t> start);

/// Reads a whole TGA file: true colour, grey or with a palette, also run-length encoded. Errors:
/// `malformed`, `tooLarge` above 512 megabytes in memory.
[[nodiscard]] foundation::Result<Image> readTGA(std::span<const std::uint8_t> bytes);

} // namespace zelvo::image
