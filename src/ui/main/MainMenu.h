// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/TabStackView.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <functional>

namespace zelvo::ui {

/// The pair of tabs that switches between style panel and catalogue. A press only asks; whoever
/// shows a panel lights its tab.
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

    /// For a panel that came on show by another way than a press.
    void light(Tab tab);

    /// As presses on the tabs.
    Q_INVOKABLE void askForStyle() { layoutButton.click(); }

    Q_INVOKABLE void askForActions() { animButton.click(); }

    [[nodiscard]] TabStackView* stackObject() { return &stackView; }

    MySegmentedStackButton layoutButton;
    MySegmentedStackButton animButton;
    TabStackView stackView;
};

} // namespace zelvo::ui
