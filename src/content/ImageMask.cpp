// SPDX-License-Identifier: MIT
#include "content/ImageMask.h"

namespace zelvo::content {

const std::vector<ImageMaskPtr>& imageMasks() {
    static const std::vector<ImageMaskPtr> masks = {
        std::make_shared<ImageMask>(ImageMask{"None", nullptr}),
    };
    return masks;
}

} // namespace zelvo::content
