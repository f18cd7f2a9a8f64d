// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/Size.h"

#include <algorithm>
#include <cmath>

namespace zelvo::render {

/// A part of a picture; row 0 is the top. `right` and `bottom` are exclusive.
struct PixelRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    [[nodiscard]] static PixelRect whole(Size size) { return {0, 0, size.width, size.height}; }

    [[nodiscard]] bool isEmpty() const { return right <= left || bottom <= top; }

    [[nodiscard]] double area() const {
        return isEmpty() ? 0.0 : static_cast<double>(right - left) * (bottom - top);
    }

    /// The part of a picture of another size that shows at least the same.
    [[nodiscard]] PixelRect scaled(Size from, Size to) const {
        const double x = static_cast<double>(to.width) / from.width;
        const double y = static_cast<double>(to.height) / from.height;
        return {
            static_cast<int>(std::floor(left * x)),
            static_cast<int>(std::floor(top * y)),
            static_cast<int>(std::ceil(right * x)),
            static_cast<int>(std::ceil(bottom * y))};
    }

    [[nodiscard]] PixelRect intersected(const PixelRect& other) const {
        return {
            std::max(left, other.left),
            std::max(top, other.top),
            std::min(right, other.right),
            std::min(bottom, other.bottom)};
    }

    /// The smallest rectangle around both.
    [[nodiscard]] PixelRect united(const PixelRect& other) const {
        if (isEmpty() || other.isEmpty())
            return isEmpty() ? other : *this;
        return {
            std::min(left, other.left),
            std::min(top, other.top),
            std::max(right, other.right),
            std::max(bottom, other.bottom)};
    }

    friend bool operator==(const PixelRect&, const PixelRect&) = default;
};

} // namespace zelvo::render
