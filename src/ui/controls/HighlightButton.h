// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/MyButton.h"

#include <QtQml/qqmlregistration.h>

namespace zelvo::ui {

class HighlightButton;

/// A row of buttons; it knows which of them is selected.
class HighlightRow {
public:
    virtual ~HighlightRow() = default;

    virtual void highlight(const HighlightButton& touched) = 0;
};

/// A button in a row in which the last one touched is selected.
class HighlightButton : public zelvo::ui::MyButton {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")

public:
    HighlightButton(ButtonFace shown, std::function<void()> targetFunc, QObject* parent = nullptr);

    bool highlightingEnabled = true; ///< false: a touch does not change the selection

    /// Null: not in a row; the button keeps its state.
    void setRow(HighlightRow* newRow) { row = newRow; }

    /// Selects it in its row without calling its target.
    void didTouch() override;

private:
    HighlightRow* row = nullptr;
};

/// A tab.
class MySegmentedStackButton : public zelvo::ui::HighlightButton {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")

public:
    using HighlightButton::HighlightButton;
};

} // namespace zelvo::ui
