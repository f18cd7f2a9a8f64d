// SPDX-License-Identifier: MIT
#include "app/ContactSheet.h"

#include "app/Lettering.h"
#include "platform/foundation/Check.h"

#include <QImage>
#include <QPainter>

namespace zelvo::app {

namespace {

constexpr double kCaptionBaseline = 20; ///< pixels below the picture

void checkSize(const image::Image& picture, const SheetLayout& layout) {
    CHECK(
        picture.width == layout.tileWidth && picture.height == layout.tileHeight,
        "a tile of {} x {} on a sheet of others",
        picture.width,
        picture.height);
}

[[nodiscard]] QImage wrapped(const image::Image& picture) {
    return {
        picture.pixels.data(),
        picture.width,
        picture.height,
        4 * picture.width,
        QImage::Format_RGBX8888};
}

} // namespace

SheetLayout layoutFor(std::size_t count, int mostColumns, int tileWidth, int tileHeight) {
    CHECK(count > 0 && mostColumns > 0, "{} tiles in {} columns", count, mostColumns);
    const int tiles = static_cast<int>(count);
    const int rows = (tiles + mostColumns - 1) / mostColumns;
    return {
        .tileWidth = tileWidth,
        .tileHeight = tileHeight,
        .columns = (tiles + rows - 1) / rows,
        .rows = rows};
}

foundation::Result<image::Image>
contactSheet(const std::vector<Tile>& tiles, const SheetLayout& layout) {
    for (const auto& tile : tiles)
        checkSize(tile.picture, layout);
    const auto lettering = Lettering::open();
    if (!lettering)
        return tl::unexpected(lettering.error());
    QImage canvas(layout.width(), layout.height(), QImage::Format_RGBX8888);
    canvas.fill(kGround);
    QPainter painter(&canvas);
    painter.setRenderHint(QPainter::Antialiasing);
    int place = 0;
    for (const auto& tile : tiles) {
        painter.save();
        painter.translate(layout.left(place), layout.top(place));
        painter.drawImage(0, 0, wrapped(tile.picture));
        lettering->draw(
            painter,
            {.text = tile.caption, .maxWidth = double(layout.tileWidth)},
            {0, layout.tileHeight + kCaptionBaseline},
            kInk);
        painter.restore();
        ++place;
    }
    painter.end();
    return copied(canvas);
}

} // namespace zelvo::app
