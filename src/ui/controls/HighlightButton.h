// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/MyButton.h"

#include <QtQml/qqmlregistration.h>

namespace zelvo::ui {

class HighlightButton;

/// The row that such a button stands in: it says which of its buttons is selected.
class HighlightRow {
public:
    virtual ~HighlightRow() = default;

    virtual void highlight(const HighlightButton& touched) = 0;
};

/// One of a row of which one is selected: the one that was touched last.
class HighlightButton : public zelvo::ui::MyButton {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")

public:
    HighlightButton(ButtonFace shown, std::function<void()> targetFunc, QObject* parent = nullptr);

    bool highlightingEnabled = true; ///< false: a touch leaves the selection as it is

    /// Null: it stands in none and keeps its state.
    void setRow(HighlightRow* newRow) { row = newRow; }

    /// Selects it in its row, without calling its target.
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
