// SPDX-License-Identifier: MIT
#include "app/Lettering.h"

#include "platform/foundation/Folders.h"
#include "platform/text/LineLayout.h"
#include "ui/controls/PainterPath.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cstring>

namespace zelvo::app {

namespace {

constexpr auto kFile = "fonts/NunitoSans-Medium.ttf";
constexpr auto kFont = "NunitoSans-Medium";

} // namespace

foundation::Result<Lettering> Lettering::open() {
    text::FontRegistry fonts;
    const auto registered =
        fonts.registerFile(foundation::mainBundle().path(kFile), {std::string(kFont)});
    if (!registered)
        return tl::unexpected(registered.error());
    return Lettering(fonts.find(kFont));
}

void Lettering::draw(
    QPainter& painter, const Line& line, QPointF start, const QColor& color) const {
    const auto path = ui::painterPath(text::outlineOf(
        line.text, {.font = font, .fallbacks = {}, .size = line.size, .kern = 0.2}));
    const double width = path.boundingRect().right();
    const double narrowing = std::min(1.0, line.maxWidth / std::max(width, 1.0));
    painter.save();
    painter.translate(start);
    painter.scale(narrowing, narrowing);
    painter.fillPath(path, color);
    painter.restore();
}

image::Image copied(const QImage& canvas) {
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

} // namespace zelvo::app
