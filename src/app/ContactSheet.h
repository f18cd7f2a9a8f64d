// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/image/Image.h"

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace zelvo::app {

/// A picture on a contact sheet, with its caption.
struct Tile {
    std::string caption;
    image::Image picture; ///< opaque; all pictures of a sheet have the same size
};

/// The grid of a sheet. All rows have the same number of tiles, but the last one may have fewer.
///
///     gap ┌──────┐ gap ┌──────┐ gap
///         │ tile │     │ tile │
///         └──────┘     └──────┘
///         caption      caption
struct SheetLayout {
    int tileWidth = 0;
    int tileHeight = 0;
    int columns = 1;
    int rows = 1;

    static constexpr int kGap = 12;     ///< pixels, around and between tiles
    static constexpr int kCaption = 30; ///< pixels below each picture

    /// The left edge of a tile's picture; top() is its upper edge. Tiles are numbered from 0, row
    /// by row.
    [[nodiscard]] int left(int tile) const { return kGap + tile % columns * (tileWidth + kGap); }

    [[nodiscard]] int top(int tile) const {
        return kGap + tile / columns * (tileHeight + kCaption + kGap);
    }

    [[nodiscard]] int width() const { return kGap + columns * (tileWidth + kGap); }

    [[nodiscard]] int height() const { return kGap + rows * (tileHeight + kCaption + kGap); }
};

/// The layout of `count` tiles, with at most `mostColumns` columns. It has as few rows as possible,
/// and then as few columns as possible.
[[nodiscard]] SheetLayout
layoutFor(std::size_t count, int mostColumns, int tileWidth, int tileHeight);

/// Draws the tiles and their captions on a dark background. Errors: the captions' font cannot be
/// read.
[[nodiscard]] foundation::Result<image::Image>
contactSheet(const std::vector<Tile>& tiles, const SheetLayout& layout);

} // namespace zelvo::app
