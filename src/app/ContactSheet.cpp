// SPDX-License-Identifier: MIT
#include "app/ContactSheet.h"

#include "platform/foundation/Check.h"
#include "platform/foundation/Folders.h"
#include "platform/text/FontRegistry.h"
#include "platform/text/LineLayout.h"
#include "ui/controls/PainterPath.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cstring>

namespace zelvo::app {

namespace {

constexpr auto kCaptionFile = "fonts/NunitoSans-Medium.ttf";
constexpr auto kCaptionFont = "NunitoSans-Medium";
constexpr double kCaptionSize = 15;     ///< size of the font, pixels
constexpr double kCaptionBaseline = 20; ///< pixels below the picture

const QColor kGround(24, 25, 28);
const QColor kInk(214, 216, 220);

/// Draws the caption; one that is wider than its tile is made narrower. It is drawn as outlines,
/// because Qt's own fonts need a QGuiApplication, and a command has none.
void drawCaption(QPainter& painter, const Tile& tile, const text::FontPtr& font) {
    const auto path = ui::painterPath(text::outlineOf(
        tile.caption, {.font = font, .fallbacks = {}, .size = kCaptionSize, .kern = 0.2}));
    const double width = path.boundingRect().right();
    const double narrowing = std::min(1.0, tile.picture.width / std::max(width, 1.0));
    painter.save();
    painter.translate(0, tile.picture.height + kCaptionBaseline);
    painter.scale(narrowing, narrowing);
    painter.fillPath(path, kInk);
    painter.restore();
}

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

[[nodiscard]] image::Image copied(const QImage& canvas) {
    image::Image made(canvas.width(), canvas.height());
    const auto rowBytes = std::size_t{4} * static_cast<std::size_t>(canvas.width());
    for (int y = 0; y < canvas.height(); ++y) {
        std::memcpy(
            made.pixels.data() + static_cast<std::size_t>(y) * rowBytes,
            canvas.constScanLine(y),
            rowBytes);
    }
    return made;
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
    text::FontRegistry fonts;
    const auto registered = fonts.registerFile(
        foundation::mainBundle().path(kCaptionFile), {std::string(kCaptionFont)});
    if (!registered)
        return tl::unexpected(registered.error());
    const auto font = fonts.find(kCaptionFont);

    QImage canvas(layout.width(), layout.height(), QImage::Format_RGBX8888);
    canvas.fill(kGround);
    QPainter painter(&canvas);
    painter.setRenderHint(QPainter::Antialiasing);
    int place = 0;
    for (const auto& tile : tiles) {
        painter.save();
        painter.translate(layout.left(place), layout.top(place));
        painter.drawImage(0, 0, wrapped(tile.picture));
        drawCaption(painter, tile, font);
        painter.restore();
        ++place;
    }
    painter.end();
    return copied(canvas);
}

} // namespace zelvo::app
