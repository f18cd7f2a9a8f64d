// SPDX-License-Identifier: MIT
#include "platform/render/PictureHoles.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <span>

namespace zelvo::render {
namespace {

constexpr std::size_t kPruneAbove = 256;

constexpr std::size_t kBlockBytes = 4096;

/// All pixels of a block are joined before one is looked at, because that is fast: each picture of a
/// video comes here.
bool isOpaque(std::span<const std::uint8_t> pixels) {
    std::array<std::uint8_t, 4> all{};
    std::uint32_t joined = ~std::uint32_t{0};
    for (std::size_t i = 0; i < pixels.size(); i += all.size()) {
        std::uint32_t pixel = 0;
        std::memcpy(&pixel, &pixels[i], sizeof(pixel));
        joined &= pixel;
    }
    std::memcpy(all.data(), &joined, sizeof(joined));
    return all[3] == 255;
}

bool looksThrough(const image::Image& picture) {
    const std::span<const std::uint8_t> pixels(picture.pixels);
    for (std::size_t i = 0; i < pixels.size(); i += kBlockBytes) {
        if (!isOpaque(pixels.subspan(i, std::min(kBlockBytes, pixels.size() - i))))
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
