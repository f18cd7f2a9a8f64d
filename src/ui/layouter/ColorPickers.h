// SPDX-License-Identifier: MIT
#pragma once

#include "ui/layouter/AdvancedColorPicker.h"
#include "ui/layouter/Strips.h"

#include <QColor>

#include <span>

namespace zelvo::ui {

/// A strip with a swatch for each colour. The button before it opens the picker for all other
/// colours.
class SimpleColorPicker final : public zelvo::ui::Strip {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(QList<QColor> colors READ colors CONSTANT)
    Q_PROPERTY(qreal spacing READ spacing CONSTANT)
    Q_PROPERTY(zelvo::ui::MyLabelButton* importButton READ importObject CONSTANT)
    Q_PROPERTY(zelvo::ui::AdvancedColorPicker* picker READ pickerObject CONSTANT)

public:
    /// If the colour is not in the palette, no swatch is selected.
    SimpleColorPicker(
        std::span<const image::Color> palette,
        const image::Color& current,
        QObject* parent = nullptr);

    MyLabelButton importButton;
    AdvancedColorPicker picker;

    /// Called for changes by the user; may be empty.
    std::function<void(const image::Color&)> didChangeColor;

    [[nodiscard]] const image::Color& currentColor() const { return currentColor_; }

    void choose(int index) override { buttonAction(index); }

    /// A swatch was touched.
    Q_INVOKABLE void buttonAction(int tag);
    /// Opens the picker with the current colour.
    void showPicker();

    [[nodiscard]] QList<QColor> colors() const;

    /// Between two swatches, device-independent pixels.
    [[nodiscard]] static constexpr qreal spacing() { return 5; }

    [[nodiscard]] MyLabelButton* importObject() { return &importButton; }

    [[nodiscard]] AdvancedColorPicker* pickerObject() { return &picker; }

private:
    void mark(Motion motion);
    void tell(const image::Color& color);

    std::span<const image::Color> palette_;
    image::Color currentColor_;
};

} // namespace zelvo::ui
