// SPDX-License-Identifier: MIT
#pragma once

#include "node/Node.h"
#include "ui/controls/HighlightButton.h"
#include "ui/controls/MySlider.h"
#include "ui/controls/TabStackView.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <memory>
#include <vector>

namespace zelvo::ui {

/// Edits a node's depth and its three angles: four buttons choose what the slider changes. Each
/// change shows the node and a message with the new value.
class TransformPanel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(zelvo::ui::TabStackView* stackView READ stackObject CONSTANT)
    Q_PROPERTY(zelvo::ui::MySlider* posRotSlider READ sliderObject NOTIFY sliderChanged)

public:
    explicit TransformPanel(node::NodePtr edited, QObject* parent = nullptr);

    TabStackView stackView;

    /// 0: depth; 1 to 3: angle around x, y, z.
    void setUpSlider(int tag);

    /// Takes up a value that was changed elsewhere.
    void readNode() { posRotSlider->setValue(valueOf(shownTag)); }

    [[nodiscard]] MySlider& slider() const { return *posRotSlider; }

    [[nodiscard]] TabStackView* stackObject() { return &stackView; }

    [[nodiscard]] MySlider* sliderObject() const { return posRotSlider.get(); }

Q_SIGNALS:
    void sliderChanged();

private:
    [[nodiscard]] double valueOf(int tag) const;
    void assign(int tag, double value);

    node::NodePtr node;
    std::vector<std::unique_ptr<HighlightButton>> buttons;
    std::unique_ptr<MySlider> posRotSlider;
    int shownTag = 0;
};

} // namespace zelvo::ui
