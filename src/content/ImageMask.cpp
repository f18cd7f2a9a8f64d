// SPDX-License-Identifier: MIT
#include "content/ImageMask.h"

#include <fmt/format.h>

#include <utility>

namespace zelvo::content {
namespace {

constexpr int kMaskCount = 22;

} // namespace

ImageMask::ImageMask(std::string maskName, image::ImagePtr picture)
    : name(std::move(maskName))
    , own(std::move(picture)) {}

ImageMask::ImageMask(std::string maskName, std::string resourceName)
    : name(std::move(maskName))
    , resource(std::make_unique<image::LazyImage>(std::move(resourceName))) {}

image::ImagePtr ImageMask::image() const {
    return resource ? resource->image() : own;
}

const std::vector<ImageMaskPtr>& imageMasks() {
    static const std::vector<ImageMaskPtr> masks = [] {
        std::vector<ImageMaskPtr> all{std::make_shared<ImageMask>("None", image::ImagePtr())};
        for (int n = 1; n <= kMaskCount; ++n) {
            all.push_back(std::make_shared<ImageMask>(
                fmt::format("Mask {}", n), fmt::format("Mask{}.png", n)));
        }
        return all;
    }();
    return masks;
}

} // namespace zelvo::content
