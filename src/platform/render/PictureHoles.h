// SPDX-License-Identifier: MIT
#pragma once

#include "platform/image/Image.h"

#include <memory>
#include <unordered_map>

namespace zelvo::render {

/// Remembers which pictures are not opaque everywhere, so that each is looked through once.
class PictureHoles {
public:
    /// False for no picture.
    [[nodiscard]] bool isIn(const image::ImagePtr& picture);

private:
    struct Known {
        std::weak_ptr<const image::Image> picture;
        bool hasHoles = false;
    };

    std::unordered_map<const image::Image*, Known> known;
};

} // namespace zelvo::render
