// SPDX-License-Identifier: MIT
#include "ui/layouter/ColorPickers.h"

#include <algorithm>

namespace zelvo::ui {

SimpleColorPicker::SimpleColorPicker(
    std::span<const image::Color> palette, const image::Color& current, QObject* parent)
    : Strip(static_cast<int>(palette.size()), parent)
    , importButton({.image = "ColorPicker", .name = tr("More colors")}, [this] { showPicker(); })
    , picker([this](const image::Color& color) {
        tell(color);
        mark(Motion::animated);
    })
    , palette_(palette)
    , currentColor_(current) {
    importButton.unselectedColor = kButtonColor;
    mark(Motion::atOnce);
}

void SimpleColorPicker::buttonAction(int tag) {
    select(tag, Motion::animated);
    if (currentIndex() >= 0)
        tell(palette_[static_cast<std::size_t>(tag)]);
}

void SimpleColorPicker::showPicker() {
    picker.open(currentColor_);
}

QList<QColor> SimpleColorPicker::colors() const {
    QList<QColor> colors;
    for (const image::Color& color : palette_)
        colors.append(shownColor(color));
    return colors;
}

void SimpleColorPicker::mark(Motion motion) {
    const auto found = std::ranges::find(palette_, currentColor_);
    select(found == palette_.end() ? -1 : static_cast<int>(found - palette_.begin()), motion);
}

void SimpleColorPicker::tell(const image::Color& color) {
    currentColor_ = color;
    if (didChangeColor)
        didChangeColor(color);
}

} // namespace zelvo::ui
