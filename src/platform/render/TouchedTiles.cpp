// SPDX-License-Identifier: MIT
#include "platform/render/TouchedTiles.h"

namespace zelvo::render {
namespace {

int tilesFor(int pixels) {
    return (pixels + TouchedTiles::kSide - 1) / TouchedTiles::kSide;
}

std::size_t indexOf(int row, int column, int columns) {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns) +
           static_cast<std::size_t>(column);
}

/// A run below one of the same width makes that one higher.
void addRun(std::vector<PixelRect>& found, const PixelRect& run) {
    const auto above = std::ranges::find_if(found, [&](const PixelRect& rect) {
        return rect.bottom == run.top && rect.left == run.left && rect.right == run.right;
    });
    if (above != found.end())
        above->bottom = run.bottom;
    else
        found.push_back(run);
}

} // namespace

void TouchedTiles::reset(Size picture) {
    size = picture;
    columns = tilesFor(size.width);
    rows = tilesFor(size.height);
    tiles.assign(indexOf(rows, 0, columns), 0);
}

void TouchedTiles::add(const PixelRect& part) {
    const PixelRect inside = part.intersected(PixelRect::whole(size));
    if (inside.isEmpty())
        return;
    const int lastColumn = tilesFor(inside.right);
    const int lastRow = tilesFor(inside.bottom);
    for (int row = inside.top / kSide; row < lastRow; ++row) {
        for (int column = inside.left / kSide; column < lastColumn; ++column)
            tiles[indexOf(row, column, columns)] = 1;
    }
}

std::vector<PixelRect> TouchedTiles::rects(bool wanted) const {
    std::vector<PixelRect> found;
    for (int row = 0; row < rows; ++row) {
        const int top = row * kSide;
        const int bottom = std::min(top + kSide, size.height);
        for (int column = 0; column < columns;) {
            const int end = endOfRun(row, column);
            if ((tiles[indexOf(row, column, columns)] != 0) == wanted)
                addRun(found, {column * kSide, top, std::min(end * kSide, size.width), bottom});
            column = end;
        }
    }
    return found;
}

int TouchedTiles::endOfRun(int row, int first) const {
    const std::uint8_t kind = tiles[indexOf(row, first, columns)];
    int end = first + 1;
    while (end < columns && tiles[indexOf(row, end, columns)] == kind)
        ++end;
    return end;
}

} // namespace zelvo::render
