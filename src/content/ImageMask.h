// SPDX-License-Identifier: MIT
#pragma once

#include "platform/image/reading/ImageNamed.h"

#include <memory>
#include <string>
#include <vector>

namespace zelvo::content {

/// A shape that the image node's picture is cut to: black parts show the picture, white parts hide
/// it.
class ImageMask {
public:
    ImageMask(std::string maskName, image::ImagePtr picture);
    /// `resourceName` is read on first use. A missing file ends the process.
    ImageMask(std::string maskName, std::string resourceName);

    const std::string name; ///< shown to the user; identifies the mask

    [[nodiscard]] image::ImagePtr image() const; ///< null: the whole picture is shown

private:
    image::ImagePtr own;
    std::unique_ptr<const image::LazyImage> resource;
};

using ImageMaskPtr = std::shared_ptr<const ImageMask>;

/// All masks in the user's order, "None" first; one list for the process.
[[nodiscard]] const std::vector<ImageMaskPtr>& imageMasks();

} // namespace zelvo::content
