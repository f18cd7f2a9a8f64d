// SPDX-License-Identifier: MIT
#include "ui/layouter/ImagePanel.h"

#include <utility>

namespace zelvo::ui {

ImagePanel::ImagePanel(content::ImageNodePtr edited, std::function<void()> import, QObject* parent)
    : QObject(parent)
    , importButton(
          {.image = "Import", .title = tr("Import"), .name = tr("Choose a picture")},
          std::move(import))
    , toggleImageVisibilityButton({}, [this] { toggleVisibility(); })
    , flipH(
          {.image = "FlipH_1", .title = tr("Flip"), .name = tr("Mirror left to right")},
          [this] { changeFlipH(); })
    , flipV(
          {.image = "FlipV_1", .title = tr("Flip"), .name = tr("Mirror top to bottom")},
          [this] { changeFlipV(); })
    , rotate(
          {.image = "Rotate90", .title = tr("Rotate"), .name = tr("Turn by a quarter")},
          [this] { changeRotation(); })
    , node(std::move(edited)) {
    flipH.selectedImage = "FlipH_2";
    flipV.selectedImage = "FlipV_2";
    for (MyButton* const button : buttonObjects()) {
        button->unselectedColor = kButtonColor;
        button->selectedColor = kButtonColor;
        button->size = {110, 36};
    }
    flipH.setMySelected(node->hFlipped);
    flipV.setMySelected(node->vFlipped);
    refresh();
}

void ImagePanel::toggleVisibility() {
    node->isVisible = !node->isVisible;
    node->updateVisibility();
    refresh();
}

void ImagePanel::changeFlipH() {
    flipH.setMySelected(!flipH.isMySelected());
    node->hFlipped = flipH.isMySelected();
    node->updateContent();
    show();
}

void ImagePanel::changeFlipV() {
    flipV.setMySelected(!flipV.isMySelected());
    node->vFlipped = flipV.isMySelected();
    node->updateContent();
    show();
}

void ImagePanel::changeRotation() {
    node->quarterTurn();
    show();
}

void ImagePanel::show() {
    node->isVisible = true;
    node->updateVisibility();
    refresh();
}

void ImagePanel::refresh() {
    toggleImageVisibilityButton.setFace(
        node->isVisible
            ? ButtonFace{.image = "Hidden_On", .title = tr("Hide"), .name = tr("Hide the image")}
            : ButtonFace{.image = "Hidden_Off", .title = tr("Show"), .name = tr("Show the image")});
}

QList<MyButton*> ImagePanel::buttonObjects() {
    return {&importButton, &toggleImageVisibilityButton, &flipH, &flipV, &rotate};
}

} // namespace zelvo::ui
