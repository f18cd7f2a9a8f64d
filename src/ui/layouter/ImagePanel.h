// SPDX-License-Identifier: MIT
#pragma once

#include "content/ImageNode.h"
#include "ui/controls/MyButton.h"

#include <QList>
#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <functional>

namespace zelvo::ui {

/// Asks for a picture; shows or hides the picture, mirrors it, and turns it by 90 degrees. Mirroring and turning also
/// show it.
class ImagePanel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(QList<zelvo::ui::MyButton*> buttons READ buttonObjects CONSTANT)

public:
    /// `import` asks for a picture.
    ImagePanel(
        content::ImageNodePtr edited, std::function<void()> import, QObject* parent = nullptr);

    MyLabelButton importButton;
    MyLabelButton toggleImageVisibilityButton;
    MyLabelButton flipH;
    MyLabelButton flipV;
    MyLabelButton rotate;

    void toggleVisibility();
    void changeFlipH();
    void changeFlipV();
    void changeRotation();

    [[nodiscard]] QList<MyButton*> buttonObjects();

private:
    void show();
    void refresh();

    content::ImageNodePtr node;
};

} // namespace zelvo::ui
