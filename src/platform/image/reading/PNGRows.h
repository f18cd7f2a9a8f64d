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

/// Fills the bytes with what comes next in the file; says how many there were.
using ByteSource = std::function<std::size_t(std::span<std::uint8_t>)>;

/// A PNG as large as limitedExtent() has it, with what its file says about its colours.
struct LimitedPNG {
    Image image;
    std::vector<std::uint8_t> profile; ///< ICC; empty where there is none
    std::optional<double> gamma;       ///< of the encoding (1 / 2.2 for most), if not sRGB
};

/// What a PNG's first bytes claim.
struct PNGHeader {
    Extent extent;
    bool isInterlaced = false;
};

/// Absent if the first `kPNGHeaderBytes` of a file are not those of a PNG.
inline constexpr std::size_t kPNGHeaderBytes = 29;
[[nodiscard]] std::optional<PNGHeader> pngHeaderOf(std::span<const std::uint8_t> bytes);

/// Reads a PNG row by row, each scaled down when it comes, so that a huge picture is never held
/// whole; of an interlaced one, whose rows come out of order, it holds nothing and makes no sense.
/// 16-bit, grey and palette pictures become RGBA. Errors: malformed.
[[nodiscard]] foundation::Result<LimitedPNG> readLimitedPNG(ByteSource source);

} // namespace zelvo::image
