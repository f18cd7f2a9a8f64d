// SPDX-License-Identifier: MIT
#pragma once

#include "platform/media/PixelBuffer.h"

#include <cstddef>
#include <cstdint>

namespace zelvo::media {

/// Where a picture of half chroma resolution goes. Width and height are those of the source
/// picture; the chroma planes have half of both.
struct YuvPlanes {
    std::uint8_t* luma = nullptr;
    std::uint8_t* cb = nullptr;
    std::uint8_t* cr = nullptr;
    std::ptrdiff_t lumaStride = 0;
    std::ptrdiff_t chromaStride = 0;
};

/// Converts to Y'CbCr 4:2:0 in video range (16 to 235, 16 to 240), BT.709 (ITU-R BT.709-6, 3.2
/// to 3.4), each value within 1 of the rounded formula. Chroma samples lie on the left pixel of
/// their pair and halfway between their two rows (ITU-T H.264, figure 6-4). Width and height must
/// be even.
void convertToYuv420(const PixelBuffer& picture, const YuvPlanes& planes);

} // namespace zelvo::media
