// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/image/Image.h"
#include "platform/image/reading/AreaScaler.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace zelvo::image {

/// Reads the next bytes of the file into the span; returns how many.
using ByteSource = std::function<std::size_t(std::span<std::uint8_t>)>;

/// White and the three primaries, as x and y of CIE 1931.
struct Chromaticities {
    std::array<double, 2> white, red, green, blue;
};

/// A PNG scaled down to limitedExtent(), with its colour information.
struct LimitedPNG {
    Image image;
    std::vector<std::uint8_t> profile; ///< ICC profile; empty if there is none
    std::optional<double> gamma; ///< gamma of the encoding (usually 1 / 2.2), if it is not sRGB
    std::optional<Chromaticities> chromaticities; ///< of the encoding with that gamma
};

/// What the header of a PNG says.
struct PNGHeader {
    Extent extent;
    bool isInterlaced = false;
};

/// Whether a file that begins so is meant to be a PNG.
[[nodiscard]] bool isPNG(std::span<const std::uint8_t> bytes);

/// Nothing if the first `kPNGHeaderBytes` of the file are not those of a PNG.
inline constexpr std::size_t kPNGHeaderBytes = 29;
[[nodiscard]] std::optional<PNGHeader> pngHeaderOf(std::span<const std::uint8_t> bytes);

/// Reads a PNG row by row and scales each row down at once, so that a huge picture is never in
/// memory. An interlaced one is: its rows do not come in order. 16-bit, grey and palette pictures
/// become RGBA. Says nothing on the console. Error: `malformed`.
[[nodiscard]] foundation::Result<LimitedPNG> readLimitedPNG(ByteSource source);

} // namespace zelvo::image
