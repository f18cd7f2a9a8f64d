// SPDX-License-Identifier: MIT
#include "platform/render/PictureHoles.h"

namespace zelvo::render {
namespace {

constexpr std::size_t kPruneAbove = 256;

bool looksThrough(const image::Image& picture) {
    for (std::size_t i = 3; i < picture.pixels.size(); i += 4) {
        if (picture.pixels[i] != 255)
            return true;
    }
    return false;
}

} // namespace

bool PictureHoles::isIn(const image::ImagePtr& picture) {
    if (!picture)
        return false;
    const auto found = known.find(picture.get());
    // A new picture can get the address of a deleted one; then the old weak pointer has expired.
    if (found != known.end() && !found->second.picture.expired())
        return found->second.hasHoles;
    if (known.size() > kPruneAbove) {
        std::erase_if(known, [](const auto& entry) { return entry.second.picture.expired(); });
    }
    const bool hasHoles = looksThrough(*picture);
    known[picture.get()] = {picture, hasHoles};
    return hasHoles;
}

} // namespace zelvo::render
