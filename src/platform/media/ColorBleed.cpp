// SPDX-License-Identifier: MIT
#include "platform/media/ColorBleed.h"

#include <algorithm>

// The picture is halved until one pixel is left, and then filled from the smaller pictures upwards
// (Gortler et al. 1996, "The Lumigraph": pull and push).

namespace zelvo::media {
namespace {

constexpr std::uint32_t alphaOf(std::uint32_t pixel) {
    return pixel >> 24U;
}

/// A sum of pixels, each weighted with its alpha.
struct Sum {
    std::uint32_t first = 0;
    std::uint32_t second = 0;
    std::uint32_t third = 0;
    std::uint32_t weight = 0;
    std::uint32_t maxAlpha = 0;

    void add(std::uint32_t pixel) {
        const std::uint32_t alpha = alphaOf(pixel);
        first += (pixel & 0xFFU) * alpha;
        second += ((pixel >> 8U) & 0xFFU) * alpha;
        third += ((pixel >> 16U) & 0xFFU) * alpha;
        weight += alpha;
        maxAlpha = std::max(maxAlpha, alpha);
    }

    [[nodiscard]] std::uint32_t mean() const {
        if (weight == 0)
            return 0;
        const auto channel = [this](std::uint32_t sum) { return (sum + weight / 2) / weight; };
        return channel(first) | (channel(second) << 8U) | (channel(third) << 16U) |
               (maxAlpha << 24U);
    }
};

struct Plane {
    std::uint32_t* pixels = nullptr; ///< without gaps; fourth byte: alpha
    int width = 0;
    int height = 0;

    [[nodiscard]] std::uint32_t* row(int y) const {
        return pixels + static_cast<std::ptrdiff_t>(y) * width;
    }

    [[nodiscard]] std::size_t size() const {
        return static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    }
};

Plane planeOf(PixelBuffer& picture) {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): four bytes are one pixel
    auto* const pixels = reinterpret_cast<std::uint32_t*>(picture.row(0));
    return {pixels, picture.width(), picture.height()};
}

Plane halfOf(const Plane& whole, std::vector<std::uint32_t>& memory) {
    Plane half{nullptr, std::max(whole.width / 2, 1), std::max(whole.height / 2, 1)};
    memory.resize(half.size());
    half.pixels = memory.data();
    return half;
}

/// The mean of the pixels below one of half the size.
std::uint32_t meanBelow(const Plane& whole, const Plane& half, int x, int y) {
    // The last column and row of an odd side belong to the last pixel.
    const int endX = x + 1 == half.width ? whole.width : 2 * x + 2;
    const int endY = y + 1 == half.height ? whole.height : 2 * y + 2;
    Sum sum;
    for (int row = 2 * y; row < endY; ++row)
        std::for_each(
            whole.row(row) + 2 * x, whole.row(row) + endX, [&sum](auto pixel) { sum.add(pixel); });
    return sum.mean();
}

void shrink(const Plane& whole, const Plane& half) {
    for (int y = 0; y < half.height; ++y) {
        for (int x = 0; x < half.width; ++x)
            half.row(y)[x] = meanBelow(whole, half, x, y);
    }
}

void fillFrom(const Plane& half, const Plane& whole) {
    for (int y = 0; y < whole.height; ++y) {
        const std::uint32_t* const colors = half.row(std::min(y / 2, half.height - 1));
        std::uint32_t* const row = whole.row(y);
        for (int x = 0; x < whole.width; ++x) {
            if (alphaOf(row[x]) == 0)
                row[x] = colors[std::min(x / 2, half.width - 1)] & 0x00FFFFFFU;
        }
    }
}

} // namespace

void ColorBleed::fill(PixelBuffer& picture) {
    std::vector<Plane> planes{planeOf(picture)};
    const Plane whole = planes.front();
    if (std::all_of(whole.pixels, whole.row(whole.height), alphaOf))
        return;
    while (planes.back().width > 1 || planes.back().height > 1) {
        if (halves.size() < planes.size())
            halves.emplace_back();
        planes.push_back(halfOf(planes.back(), halves[planes.size() - 1]));
        shrink(planes[planes.size() - 2], planes.back());
    }
    for (std::size_t i = planes.size() - 1; i > 0; --i)
        fillFrom(planes[i], planes[i - 1]);
}

} // namespace zelvo::media
