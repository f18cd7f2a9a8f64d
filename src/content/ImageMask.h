// SPDX-License-Identifier: MIT
#pragma once

#include "platform/image/Image.h"

#include <memory>
#include <string>
#include <vector>

namespace zelvo::content {

/// Cuts the image node's picture into a shape: black parts show the picture, white parts hide it.
class ImageMask {
public:
    ImageMask(std::string maskName, image::ImagePtr picture);
    /// A resource picture, read when it is first asked for. One that is missing ends the process.
    ImageMask(std::string maskName, std::string resourceName);

    const std::string name; ///< for the user, and the mask's identity

    [[nodiscard]] image::ImagePtr image() const; ///< null shows the whole picture

private:
    image::ImagePtr own;
    std::string resource;
};

using ImageMaskPtr = std::shared_ptr<const ImageMask>;

/// All masks in the order of the user's strip, "None" first; one list for the process.
[[nodiscard]] const std::vector<ImageMaskPtr>& imageMasks();

} // namespace zelvo::content
