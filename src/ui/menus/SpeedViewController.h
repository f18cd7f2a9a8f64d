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

/// The strip above the catalogue: which nodes the next action works on and how fast it plays. Both
/// choices live in the model and so outlast the strip.
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

    /// The strip comes on show: reads the choice of nodes from the model.
    Q_INVOKABLE void viewWillAppear();

    [[nodiscard]] bool isHidden() const { return hidden; }

    void setHidden(bool isGone);

    /// The node button of that tag (0 to 3) was pressed.
    void nodeAction(int tag);
    /// The speed of that tag, 0 (slowest) to 6; any other means the normal one.
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
