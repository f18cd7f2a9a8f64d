// SPDX-License-Identifier: MIT
#pragma once

#include "platform/image/Color.h"
#include "ui/layouter/Strips.h"

#include <QColor>

#include <span>

namespace zelvo::ui {

/// A strip with a swatch for each colour.
class SimpleColorPicker final : public zelvo::ui::Strip {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(QList<QColor> colors READ colors CONSTANT)

public:
    void choose(int index) override { buttonAction(index); }

    /// If the colour is not in the palette, no swatch is selected.
    SimpleColorPicker(
        std::span<const image::Color> palette,
        const image::Color& current,
        QObject* parent = nullptr);

    /// Called for changes by the user; may be empty.
    std::function<void(const image::Color&)> didChangeColor;

    /// A swatch was touched.
    Q_INVOKABLE void buttonAction(int tag);

    [[nodiscard]] QList<QColor> colors() const;

private:
    std::span<const image::Color> palette_;
};

} // namespace zelvo::ui
