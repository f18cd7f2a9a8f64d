// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/image/Image.h"

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace zelvo::app {

/// A picture of a contact sheet with the words below it.
struct Tile {
    std::string caption;
    image::Image picture; ///< opaque; of one size throughout a sheet
};

/// How a sheet divides into tiles: rows of equal length, only the last may be shorter.
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

    /// Where a tile's picture begins; tiles are counted from 0, row by row.
    [[nodiscard]] int left(int tile) const { return kGap + tile % columns * (tileWidth + kGap); }

    [[nodiscard]] int top(int tile) const {
        return kGap + tile / columns * (tileHeight + kCaption + kGap);
    }

    [[nodiscard]] int width() const { return kGap + columns * (tileWidth + kGap); }

    [[nodiscard]] int height() const { return kGap + rows * (tileHeight + kCaption + kGap); }
};

/// The layout of `count` tiles in as few rows of at most `mostColumns` as will do, evenly filled.
[[nodiscard]] SheetLayout
layoutFor(std::size_t count, int mostColumns, int tileWidth, int tileHeight);

/// The tiles on a dark ground, captions set below. Errors: those of the caption's font.
[[nodiscard]] foundation::Result<image::Image>
contactSheet(const std::vector<Tile>& tiles, const SheetLayout& layout);

} // namespace zelvo::app
