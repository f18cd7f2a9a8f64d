// SPDX-License-Identifier: MIT
#pragma once

#include "ui/layouter/ColorPipette.h"
#include "ui/layouter/GradientSliders.h"

#include <QColor>
#include <QList>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <optional>

namespace zelvo::ui {

/// The colour of "#RGB" or "#RRGGBB", also without "#" and in small letters; nothing for any other
/// text.
[[nodiscard]] std::optional<image::Color> colorOfHex(const QString& text);

/// Chooses any colour, by sliders, by number or from the stage. Every change is told at once; so
/// the user sees it on the stage while dragging.
class AdvancedColorPicker final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(bool isOpen READ isOpen NOTIFY openChanged)
    Q_PROPERTY(QList<zelvo::ui::GradientSlider*> stackView READ stackView CONSTANT)
    Q_PROPERTY(zelvo::ui::ColorPipette* pipette READ pipetteObject CONSTANT)
    Q_PROPERTY(QColor formerColor READ formerShown NOTIFY changed)
    Q_PROPERTY(QColor currentColor READ currentShown NOTIFY changed)
    Q_PROPERTY(QString hex READ hex NOTIFY changed)

public:
    /// `told`: see didChangeColor.
    explicit AdvancedColorPicker(
        std::function<void(const image::Color&)> told, QObject* parent = nullptr);

    HuePickerView huePickerView;
    SaturationPickerView saturationPickerView;
    BrightnessPickerView brightnessPickerView;
    ColorPipette pipette;

    /// Called for changes by the user; may be empty.
    std::function<void(const image::Color&)> didChangeColor;

    [[nodiscard]] bool isOpen() const { return isOpen_; }

    [[nodiscard]] const image::Color& currentColor() const { return currentColor_; }

    void open(const image::Color& color);
    /// Closes; the colour stays.
    Q_INVOKABLE void keep();
    /// Closes; the colour is again what it was.
    Q_INVOKABLE void cancel();
    /// Takes the former colour without closing.
    Q_INVOKABLE void takeFormer();

    /// Takes a colour in hexadecimal digits (see colorOfHex). False: it is none; then nothing
    /// changes.
    Q_INVOKABLE bool writeHex(const QString& text);
    /// The same while the user is still typing: takes only six digits. False: no further digit can
    /// make it a colour.
    Q_INVOKABLE bool typeHex(const QString& text);

    /// "#RRGGBB"
    [[nodiscard]] QString hex() const;

    [[nodiscard]] QList<GradientSlider*> stackView();

    [[nodiscard]] ColorPipette* pipetteObject() { return &pipette; }

    [[nodiscard]] QColor formerShown() const { return shownColor(formerColor); }

    [[nodiscard]] QColor currentShown() const { return shownColor(currentColor_); }

Q_SIGNALS:
    void openChanged();
    void changed();

private:
    void recombine();
    void take(const image::Color& color);
    void showOnSliders(const image::Color& color);
    void setOpen(bool isOn);

    image::Color formerColor;
    image::Color currentColor_;
    image::HSBColor parts; ///< keeps hue and saturation where the colour has none
    bool isOpen_ = false;
};

} // namespace zelvo::ui
