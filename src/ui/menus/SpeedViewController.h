// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/HighlightButton.h"
#include "ui/controls/Services.h"
#include "ui/controls/TabStackView.h"

#include <QList>
#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <array>
#include <memory>
#include <vector>

namespace zelvo::ui {

/// The strip above the catalogue: the nodes for the next action and its speed. Both are stored in
/// the model, so they remain when the strip is closed.
class SpeedViewController final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(QList<zelvo::ui::MyButton*> nodesStackView READ nodeObjects CONSTANT)
    Q_PROPERTY(zelvo::ui::TabStackView* speedStackView READ speedObject CONSTANT)
    Q_PROPERTY(bool isHidden READ isHidden NOTIFY changed)

public:
    explicit SpeedViewController(const Services& given, QObject* parent = nullptr);

    // clang-format off
    MyButton txt1Btn, txt2Btn, imgBtn, medBtn;
    // clang-format on
    TabStackView speedStackView;

    /// When the view appears: reads the chosen nodes from the model.
    Q_INVOKABLE void viewWillAppear();

    [[nodiscard]] bool isHidden() const { return hidden; }

    void setHidden(bool isGone);

    /// The node button with this tag (0 to 3) was pressed.
    void nodeAction(int tag);
    /// Sets the speed with this tag, 0 (slowest) to 6; any other tag means normal.
    void speedAction(int tag);

    [[nodiscard]] QList<MyButton*> nodeObjects();

    [[nodiscard]] TabStackView* speedObject() { return &speedStackView; }

Q_SIGNALS:
    void changed();

private:
    [[nodiscard]] std::array<MyButton*, 4> nodeButtons() {
        return {&txt1Btn, &txt2Btn, &imgBtn, &medBtn};
    }

    Services services;
    std::vector<std::unique_ptr<HighlightButton>> speedButtons;
    bool hidden = true;
};

} // namespace zelvo::ui
