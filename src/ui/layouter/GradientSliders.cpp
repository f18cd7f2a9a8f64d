// SPDX-License-Identifier: MIT
#include "ui/layouter/GradientSliders.h"

#include <utility>

namespace zelvo::ui {

QColor shownColor(const image::Color& color) {
    return QColor::fromRgbF(color.red, color.green, color.blue, color.alpha);
}

GradientSlider::GradientSlider(
    const QString& name,
    double maximum,
    const QString& unit,
    Part shownPart,
    std::function<void()> moved)
    : slider(name, {0, maximum, maximum / 100}, unit)
    , part(shownPart) {
    slider.valueChanged = [moved = std::move(moved)](double) { moved(); };
}

void GradientSlider::show(const image::HSBColor& parts) {
    others = parts;
    // A position that means the same stays: the full circle is not thrown back to 0.
    if (parts.*part != currentPart())
        slider.setValue(static_cast<double>(parts.*part) * slider.maximumValue());
    Q_EMIT shown();
}

float GradientSlider::currentPart() const {
    return static_cast<float>(slider.value() / slider.maximumValue());
}

QList<QColor> GradientSlider::image() const {
    QList<QColor> stops;
    image::HSBColor parts = gradientParts();
    for (int i = 0; i < kStops; ++i) {
        parts.*part = static_cast<float>(i) / (kStops - 1);
        stops.append(shownColor(image::fromHSB(parts)));
    }
    return stops;
}

QColor GradientSlider::color() const {
    return shownColor(colorNow());
}

image::Color GradientSlider::colorNow() const {
    image::HSBColor parts = others;
    parts.*part = currentPart();
    return image::fromHSB(parts);
}

HuePickerView::HuePickerView()
    : GradientSlider(tr("Hue"), 360, "°", &image::HSBColor::hue, [this] {
        if (didChangeColor)
            didChangeColor(currentColor());
    }) {}

SaturationPickerView::SaturationPickerView()
    : GradientSlider(tr("Saturation"), 100, " %", &image::HSBColor::saturation, [this] {
        if (didChangeSaturation)
            didChangeSaturation(currentSaturation());
    }) {}

BrightnessPickerView::BrightnessPickerView()
    : GradientSlider(tr("Brightness"), 100, " %", &image::HSBColor::brightness, [this] {
        if (didChangeBrightness)
            didChangeBrightness(currentBrightness());
    }) {}

} // namespace zelvo::ui
