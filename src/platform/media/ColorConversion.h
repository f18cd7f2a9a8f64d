// SPDX-License-Identifier: MIT
#pragma once

#include "platform/media/PixelBuffer.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace zelvo::media {

/// The target of a conversion to 4:2:0. Width and height are those of the source picture; the
/// chroma planes have half of both.
struct YuvPlanes {
    std::uint8_t* luma = nullptr;
    std::uint8_t* cb = nullptr;
    std::uint8_t* cr = nullptr;
    std::ptrdiff_t lumaStride = 0;
    std::ptrdiff_t chromaStride = 0;
};

/// Converts to Y'CbCr 4:2:0 in video range (16 to 235, 16 to 240), BT.709 (ITU-R BT.709-6, 3.2 to
/// 3.4). Each value differs by at most 1 from the rounded formula. Chroma samples are on the left
/// pixel of a pair, half-way between its two rows (ITU-T H.264, figure 6-4). Width and height must
/// be even.
void convertToYuv420(const PixelBuffer& picture, const YuvPlanes& planes);

/// The target of a conversion with alpha: luma, Cb, Cr and alpha, all of the picture's size.
struct YuvaPlanes {
    std::array<std::uint16_t*, 4> rows{}; ///< the first of each plane
    std::array<std::ptrdiff_t, 4> wordsPerRow{};
};

/// Converts to Y'CbCr 4:4:4 with 10 bits in video range (64 to 940, 64 to 960), BT.709, and alpha
/// from 0 to 1023. Each value differs by at most 1 from the rounded formula.
void convertToYuva444(const PixelBuffer& picture, const YuvaPlanes& planes);

/// Copies the alpha to a plane with 8 bits.
void copyAlpha(const PixelBuffer& picture, std::uint8_t* plane, std::ptrdiff_t bytesPerRow);

} // namespace zelvo::media
