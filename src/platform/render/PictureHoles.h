// SPDX-License-Identifier: MIT
#pragma once

#include "platform/image/Image.h"

#include <memory>
#include <unordered_map>

namespace zelvo::render {

/// Remembers which pictures have transparent pixels, so that each picture is scanned only once.
class PictureHoles {
public:
    /// False if there is no picture.
    [[nodiscard]] bool isIn(const image::ImagePtr& picture);

private:
    struct Known {
        std::weak_ptr<const image::Image> picture;
        bool hasHoles = false;
    };

    std::unordered_map<const image::Image*, Known> known;
};

} // namespace zelvo::render
