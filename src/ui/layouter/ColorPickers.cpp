// SPDX-License-Identifier: MIT
#include "ui/layouter/ColorPickers.h"

#include <algorithm>

namespace zelvo::ui {

SimpleColorPicker::SimpleColorPicker(
    std::span<const image::Color> palette, const image::Color& current, QObject* parent)
    : Strip(static_cast<int>(palette.size()), parent)
    , palette_(palette) {
    const auto found = std::ranges::find(palette_, current);
    const auto place = static_cast<int>(found - palette_.begin());
    select(found == palette_.end() ? -1 : place, Motion::atOnce);
}

void SimpleColorPicker::buttonAction(int tag) {
    select(tag, Motion::animated);
    if (currentIndex() >= 0 && didChangeColor)
        didChangeColor(palette_[static_cast<std::size_t>(tag)]);
}

QList<QColor> SimpleColorPicker::colors() const {
    QList<QColor> colors;
    for (const image::Color& color : palette_)
        colors.append(QColor::fromRgbF(color.red, color.green, color.blue, color.alpha));
    return colors;
}

} // namespace zelvo::ui
