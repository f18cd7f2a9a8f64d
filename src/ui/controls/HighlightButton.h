// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/MyButton.h"

#include <memory>
#include <string>

namespace zelvo::ui {

/// One of a group of which one is selected. A touch tells all buttons of the program which one was
/// touched and in which stack; those of the same stack select or unselect themselves. So there is
/// one selection a stack, with no list of them and no link between the buttons.
class HighlightButton : public MyButton {
    Q_OBJECT

public:
    HighlightButton(ButtonFace shown, std::function<void()> targetFunc, QObject* parent = nullptr);

    const std::string uuid;
    bool highlightingEnabled = true; ///< false: a touch leaves the selection as it is

    /// The stack it stands in; null: none, it then neither tells nor listens.
    [[nodiscard]] const QObject* superView() const { return stack; }

    void setSuperView(const QObject* stackView) { stack = stackView; }

    /// Selects it in its stack, without calling its target.
    void didTouch() override;

private:
    void catchSelectedNotification(const std::string& selectedUuid, const QObject* where);

    const QObject* stack = nullptr;
    std::shared_ptr<const bool> listening = std::make_shared<const bool>(true);
};

/// A tab.
class MySegmentedStackButton : public HighlightButton {
    Q_OBJECT

public:
    using HighlightButton::HighlightButton;
};

} // namespace zelvo::ui
