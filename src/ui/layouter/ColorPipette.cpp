// SPDX-License-Identifier: MIT
#include "ui/layouter/ColorPipette.h"

#include <algorithm>
#include <utility>

namespace zelvo::ui {

ColorPipette::ColorPipette(std::function<void(const image::Color&)> told, QObject* parent)
    : QObject(parent)
    , button(
          {.image = "Pipette", .name = tr("Pick a color from the stage")},
          [this] { setOn(!isOn_); })
    , didTakeColor(std::move(told)) {
    button.unselectedColor = kButtonColor;
    button.selectedColor = kAccentColor;
}

void ColorPipette::setOn(bool isWanted) {
    if (isWanted == isOn_)
        return;
    isOn_ = isWanted;
    picture = {};
    place_ = {0.5, 0.5};
    button.setMySelected(isOn_);
    Q_EMIT onChanged();
    Q_EMIT changed();
}

void ColorPipette::look(const QImage& stage) {
    if (!isOn_)
        return;
    picture = stage;
    Q_EMIT changed();
}

void ColorPipette::moveTo(QPointF place) {
    place_ = {std::clamp(place.x(), 0.0, 1.0), std::clamp(place.y(), 0.0, 1.0)};
    Q_EMIT changed();
}

void ColorPipette::moveBy(int right, int down) {
    if (!hasPicture())
        return;
    const QPointF middle = QPointF(pixel() + QPoint(right, down)) + QPointF(0.5, 0.5);
    moveTo({middle.x() / picture.width(), middle.y() / picture.height()});
}

void ColorPipette::take() {
    if (!isOn_ || !hasPicture())
        return;
    const QColor taken = color();
    setOn(false);
    if (didTakeColor)
        didTakeColor(image::Color::hex(taken.rgb() & 0xFFFFFFU));
}

QPoint ColorPipette::pixel() const {
    const auto at = [](double share, int count) {
        return std::clamp(static_cast<int>(share * count), 0, std::max(0, count - 1));
    };
    return {at(place_.x(), picture.width()), at(place_.y(), picture.height())};
}

QColor ColorPipette::color() const {
    return hasPicture() ? QColor(picture.pixelColor(pixel()).rgb()) : QColor(Qt::black);
}

} // namespace zelvo::ui
