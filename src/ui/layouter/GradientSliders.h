// SPDX-License-Identifier: MIT
#pragma once

#include "platform/image/Color.h"
#include "ui/controls/MySlider.h"

#include <QColor>
#include <QList>
#include <QObject>
#include <QtQml/qqml.h>

#include <functional>

namespace zelvo::ui {

[[nodiscard]] QColor shownColor(const image::Color& color);

/// A slider for one part of a colour, over a gradient of what it would give at each place.
class GradientSlider : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(zelvo::ui::MySlider* slider READ sliderObject CONSTANT)
    Q_PROPERTY(QList<QColor> image READ image NOTIFY shown)
    Q_PROPERTY(QColor color READ color NOTIFY shown)

public:
    MySlider slider;

    /// Shows the parts of a colour; tells nobody.
    void show(const image::HSBColor& parts);

    /// What the slider says, 0 to 1.
    [[nodiscard]] float currentPart() const;

    /// The gradient, from the slider's lowest to its highest value: kStops colours at equal
    /// distances.
    [[nodiscard]] QList<QColor> image() const;

    /// The colour at the slider's handle.
    [[nodiscard]] QColor color() const;

    [[nodiscard]] MySlider* sliderObject() { return &slider; }

    static constexpr int kStops = 7; ///< the circle of hues has a bend every 60 degrees

Q_SIGNALS:
    void shown();

protected:
    using Part = float image::HSBColor::*;

    /// `moved`: called when the user moves the slider.
    GradientSlider(
        const QString& name,
        double maximum,
        const QString& unit,
        Part shownPart,
        std::function<void()> moved);

    /// The colour with this slider's part.
    [[nodiscard]] image::Color colorNow() const;

    /// The other parts of the gradient's colours.
    [[nodiscard]] virtual image::HSBColor gradientParts() const { return others; }

private:
    Part part;
    image::HSBColor others; ///< its own part is not used
};

class HuePickerView final : public zelvo::ui::GradientSlider {
    Q_OBJECT

public:
    HuePickerView();

    /// May be empty.
    std::function<void(const image::Color&)> didChangeColor;

    [[nodiscard]] image::Color currentColor() const { return colorNow(); }

private:
    /// Always the full circle: where red is must be seen on white and on black, too.
    [[nodiscard]] image::HSBColor gradientParts() const override { return {0, 1, 1, 1}; }
};

class SaturationPickerView final : public zelvo::ui::GradientSlider {
    Q_OBJECT

public:
    SaturationPickerView();

    std::function<void(float)> didChangeSaturation; ///< may be empty

    [[nodiscard]] float currentSaturation() const { return currentPart(); }
};

class BrightnessPickerView final : public zelvo::ui::GradientSlider {
    Q_OBJECT

public:
    BrightnessPickerView();

    std::function<void(float)> didChangeBrightness; ///< may be empty

    [[nodiscard]] float currentBrightness() const { return currentPart(); }
};

/// Makes the list type known to QML's tools.
struct GradientSliderList {
    Q_GADGET
    QML_ANONYMOUS
    QML_FOREIGN(QList<zelvo::ui::GradientSlider*>)
    QML_SEQUENTIAL_CONTAINER(zelvo::ui::GradientSlider*)
};

} // namespace zelvo::ui
