// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/TabStackView.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <functional>

namespace zelvo::ui {

/// The two tabs for style panel and catalogue. A press only requests a panel; the code that shows
/// the panel lights its tab.
class MainMenu : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(zelvo::ui::TabStackView* stackView READ stackObject CONSTANT)

public:
    enum class Tab { layout, animation };

    explicit MainMenu(QObject* parent = nullptr);

    std::function<void()> animClosure;   ///< may be empty
    std::function<void()> layoutClosure; ///< may be empty

    /// Lights a tab when its panel was opened without a press.
    void light(Tab tab);

    /// Same as presses on the tabs.
    Q_INVOKABLE void askForStyle() { layoutButton.click(); }

    Q_INVOKABLE void askForActions() { animButton.click(); }

    [[nodiscard]] TabStackView* stackObject() { return &stackView; }

    MySegmentedStackButton layoutButton;
    MySegmentedStackButton animButton;
    TabStackView stackView;
};

} // namespace zelvo::ui
