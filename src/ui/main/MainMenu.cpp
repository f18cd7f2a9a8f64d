// SPDX-License-Identifier: MIT
#include "ui/main/MainMenu.h"

namespace zelvo::ui {

MainMenu::MainMenu(QObject* parent)
    : QObject(parent)
    , layoutButton(
          {.title = tr("Style"), .name = tr("Style the stage"), .key = "F2"},
          [this] {
              if (layoutClosure)
                  layoutClosure();
          })
    , animButton({.title = tr("Actions"), .name = tr("Perform actions"), .key = "F3"}, [this] {
        if (animClosure)
            animClosure();
    }) {
    for (MySegmentedStackButton* button : {&layoutButton, &animButton}) {
        button->selectedColor = kAccentColor;
        button->unselectedColor = kButtonColor;
        button->size = {0, 36};
    }
    stackView.setArrangedSubviews({&layoutButton, &animButton});
}

void MainMenu::light(Tab tab) {
    stackView.select(static_cast<qsizetype>(tab));
}

} // namespace zelvo::ui
