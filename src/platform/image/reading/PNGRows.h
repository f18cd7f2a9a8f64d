// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/image/Image.h"
#include "platform/image/reading/AreaScaler.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace zelvo::image {

/// Reads the next bytes of the file into the span; returns how many.
using ByteSource = std::function<std::size_t(std::span<std::uint8_t>)>;

/// A PNG scaled down to limitedExtent(), with its colour information.
struct LimitedPNG {
    Image image;
    std::vector<std::uint8_t> profile; ///< ICC profile; empty if there is none
    std::optional<double> gamma; ///< gamma of the encoding (usually 1 / 2.2), if it is not sRGB
};

/// What the header of a PNG says.
struct PNGHeader {
    Extent extent;
    bool isInterlaced = false;
};

/// Nothing if the first `kPNGHeaderBytes` of the file are not those of a PNG.
inline constexpr std::size_t kPNGHeaderBytes = 29;
[[nodiscard]] std::optional<PNGHeader> pngHeaderOf(std::span<const std::uint8_t> bytes);

/// Reads a PNG row by row and scales each row down at once, so that a huge picture is never in
/// memory. Do not use it for interlaced pictures: their rows do not come in order. 16-bit, grey and
/// palette pictures become RGBA. Error: `malformed`.
[[nodiscard]] foundation::Result<LimitedPNG> readLimitedPNG(ByteSource source);

} // namespace zelvo::image
