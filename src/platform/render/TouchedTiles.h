// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/PixelRect.h"

#include <cstdint>
#include <vector>

namespace zelvo::render {

/// The square tiles of a picture that drawings have changed.
class TouchedTiles {
public:
    static constexpr int kSide = 32; ///< pixels

    /// No tile of a picture of this size is touched.
    void reset(Size picture);

    /// Touches all tiles that share a pixel with this part.
    void add(const PixelRect& part);

    /// Rectangles that cover the touched tiles, or the others. They do not overlap.
    [[nodiscard]] std::vector<PixelRect> touched() const { return rects(true); }

    [[nodiscard]] std::vector<PixelRect> untouched() const { return rects(false); }

private:
    [[nodiscard]] std::vector<PixelRect> rects(bool wanted) const;
    [[nodiscard]] int endOfRun(int row, int first) const;

    Size size;
    int columns = 0;
    int rows = 0;
    std::vector<std::uint8_t> tiles; ///< row by row; 1: touched
};

} // namespace zelvo::render
