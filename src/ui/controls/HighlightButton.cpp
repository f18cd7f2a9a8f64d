// SPDX-License-Identifier: MIT
#include "ui/controls/HighlightButton.h"

#include <utility>

namespace zelvo::ui {

HighlightButton::HighlightButton(
    ButtonFace shown, std::function<void()> targetFunc, QObject* parent)
    : MyButton(std::move(shown), std::move(targetFunc), parent) {
    selectedColor = kAccentColor;
}

void HighlightButton::didTouch() {
    if (highlightingEnabled && row != nullptr)
        row->highlight(*this);
}

} // namespace zelvo::ui
