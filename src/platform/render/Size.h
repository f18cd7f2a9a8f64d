// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cmath>

namespace zelvo::render {

struct Size {
    int width = 0; ///< pixels
    int height = 0;

    /// Rounded, at least one pixel.
    [[nodiscard]] Size scaled(double factor) const {
        const auto side = [factor](int length) {
            return std::max(1, static_cast<int>(std::lround(length * factor)));
        };
        return {side(width), side(height)};
    }

    [[nodiscard]] double aspect() const { return static_cast<double>(width) / height; }

    friend bool operator==(const Size&, const Size&) = default;
};

} // namespace zelvo::render
