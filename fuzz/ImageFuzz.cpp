// SPDX-License-Identifier: MIT
#include "platform/foundation/Check.h"
#include "platform/image/reading/ImageReader.h"
#include "platform/image/reading/SVGDrawing.h"
#include "platform/image/reading/SVGReader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (zelvo::image::isSVG({data, size})) { // in this process, where its code is seen
        (void)zelvo::image::drawSVG({data, size});
        return 0;
    }
    const auto image = zelvo::image::decodeImage({data, size});
    if (!image)
        return 0;
    const auto isSide = [](int side) { return side > 0 && side <= zelvo::image::kMaxSide; };
    const auto& picture = **image;
    const bool isInside = isSide(picture.width) && isSide(picture.height);
    CHECK(isInside, "a picture of {} x {}", picture.width, picture.height);
    return 0;
}
