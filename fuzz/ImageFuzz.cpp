// SPDX-License-Identifier: MIT
#include "platform/foundation/Check.h"
#include "platform/image/reading/ImageReader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto image = zelvo::image::decodeImage({data, size});
    if (!image)
        return 0;
    const auto isSide = [](int side) { return side > 0 && side <= zelvo::image::kMaxSide; };
    const auto& picture = **image;
    const bool isInside = isSide(picture.width) && isSide(picture.height);
    CHECK(isInside, "a picture of {} x {}", picture.width, picture.height);
    return 0;
}
