// SPDX-License-Identifier: MIT
#include "ui/layouter/AdvancedColorPicker.h"

#include <QRegularExpression>

#include <utility>

namespace zelvo::ui {

namespace {

constexpr qsizetype kShortDigits = 3;
constexpr qsizetype kDigits = 6;

/// The digits of "#RRGGBB" or of its beginning; nothing for any other text.
std::optional<QString> digitsOf(const QString& text) {
    static const QRegularExpression pattern(QStringLiteral("^#?([0-9A-Fa-f]{0,6})$"));
    const auto found = pattern.match(text.trimmed());
    return found.hasMatch() ? std::optional(found.captured(1)) : std::nullopt;
}

} // namespace

std::optional<image::Color> colorOfHex(const QString& text) {
    const auto digits = digitsOf(text);
    if (!digits || (digits->size() != kDigits && digits->size() != kShortDigits))
        return std::nullopt;
    QString all;
    for (const QChar digit : *digits)
        all += QString(digits->size() == kShortDigits ? 2 : 1, digit);
    return image::Color::hex(all.toUInt(nullptr, 16));
}

AdvancedColorPicker::AdvancedColorPicker(
    std::function<void(const image::Color&)> told, QObject* parent)
    : QObject(parent)
    , pipette([this](const image::Color& color) { take(color); })
    , didChangeColor(std::move(told)) {
    huePickerView.didChangeColor = [this](const image::Color&) { recombine(); };
    saturationPickerView.didChangeSaturation = [this](float) { recombine(); };
    brightnessPickerView.didChangeBrightness = [this](float) { recombine(); };
}

void AdvancedColorPicker::open(const image::Color& color) {
    formerColor = color;
    currentColor_ = color;
    showOnSliders(color);
    setOpen(true);
    Q_EMIT changed();
}

void AdvancedColorPicker::keep() {
    setOpen(false);
}

void AdvancedColorPicker::cancel() {
    if (!isOpen_)
        return;
    takeFormer();
    setOpen(false);
}

void AdvancedColorPicker::takeFormer() {
    if (currentColor_ != formerColor)
        take(formerColor);
}

bool AdvancedColorPicker::writeHex(const QString& text) {
    const auto color = colorOfHex(text);
    // The shown digits are rounded; writing the same ones must not change the colour.
    if (color && shownColor(*color).rgb() != currentShown().rgb())
        take(*color);
    return color.has_value();
}

bool AdvancedColorPicker::typeHex(const QString& text) {
    const auto digits = digitsOf(text);
    return digits && (digits->size() != kDigits || writeHex(text));
}

QString AdvancedColorPicker::hex() const {
    return currentShown().name().toUpper();
}

QList<GradientSlider*> AdvancedColorPicker::stackView() {
    return {&huePickerView, &saturationPickerView, &brightnessPickerView};
}

void AdvancedColorPicker::recombine() {
    parts = {
        huePickerView.currentPart(),
        saturationPickerView.currentPart(),
        brightnessPickerView.currentPart(),
        1};
    currentColor_ = image::fromHSB(parts);
    for (GradientSlider* const view : stackView())
        view->show(parts);
    Q_EMIT changed();
    if (didChangeColor)
        didChangeColor(currentColor_);
}

void AdvancedColorPicker::take(const image::Color& color) {
    currentColor_ = color;
    showOnSliders(color);
    Q_EMIT changed();
    if (didChangeColor)
        didChangeColor(color);
}

void AdvancedColorPicker::showOnSliders(const image::Color& color) {
    const image::HSBColor read = image::toHSB(color);
    parts.brightness = read.brightness;
    if (read.brightness > 0)
        parts.saturation = read.saturation;
    if (read.brightness > 0 && read.saturation > 0)
        parts.hue = read.hue;
    for (GradientSlider* const view : stackView())
        view->show(parts);
}

void AdvancedColorPicker::setOpen(bool isOn) {
    pipette.setOn(false);
    if (std::exchange(isOpen_, isOn) != isOn)
        Q_EMIT openChanged();
}

} // namespace zelvo::ui
