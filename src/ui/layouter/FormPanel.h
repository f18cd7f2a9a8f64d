// SPDX-License-Identifier: MIT
#pragma once

#include "content/TextNode.h"
#include "ui/controls/MyButton.h"
#include "ui/controls/MySlider.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace zelvo::ui {

/// Edits the solid that a text is made of: its depth, its bevel, the curve of the bevel, and the
/// colour that fills the bevel. Each change is built at once.
class FormPanel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(zelvo::ui::MySlider* depthSlider READ depthObject CONSTANT)
    Q_PROPERTY(zelvo::ui::MySlider* bevelSlider READ bevelObject CONSTANT)
    Q_PROPERTY(zelvo::ui::MyLabelButton* profileToggle READ profileObject CONSTANT)
    Q_PROPERTY(zelvo::ui::MyLabelButton* fillToggle READ fillObject CONSTANT)

public:
    explicit FormPanel(content::TextNodePtr edited, QObject* parent = nullptr);

    MySlider depthSlider;
    MySlider bevelSlider;
    MyLabelButton profileToggle; ///< selected: a curve
    MyLabelButton fillToggle;    ///< selected: the colour of the sides

    [[nodiscard]] MySlider* depthObject() { return &depthSlider; }

    [[nodiscard]] MySlider* bevelObject() { return &bevelSlider; }

    [[nodiscard]] MyLabelButton* profileObject() { return &profileToggle; }

    [[nodiscard]] MyLabelButton* fillObject() { return &fillToggle; }

private:
    void changeBevel();
    void changeBevelInnerOuter();
    void refresh();

    content::TextNodePtr node;
};

} // namespace zelvo::ui
