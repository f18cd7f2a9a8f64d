// SPDX-License-Identifier: MIT
#include "platform/foundation/Check.h"
#include "platform/image/reading/ImageReader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto image = zelvo::image::decodeImage({data, size});
    if (image) {
        const auto& picture = **image;
        CHECK(
            picture.width > 0 && picture.height > 0 && picture.width <= zelvo::image::kMaxSide &&
                picture.height <= zelvo::image::kMaxSide,
            "a picture of {} x {}",
            picture.width,
            picture.height);
    }
    return 0;
}
