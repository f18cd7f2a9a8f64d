// SPDX-License-Identifier: MIT
#pragma once

#include "platform/image/Image.h"

#include <memory>
#include <string>
#include <vector>

namespace zelvo::content {

/// Cuts the image node's picture into a shape: black parts show the picture, white parts hide it.
struct ImageMask {
    std::string name;      ///< for the user, and the mask's identity
    image::ImagePtr image; ///< null shows the whole picture
};

using ImageMaskPtr = std::shared_ptr<const ImageMask>;

/// All masks in the order of the user's strip, "None" first; one list for the process.
[[nodiscard]] const std::vector<ImageMaskPtr>& imageMasks();

} // namespace zelvo::content
