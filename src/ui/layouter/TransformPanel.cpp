// SPDX-License-Identifier: MIT
#include "ui/layouter/TransformPanel.h"

#include "shared/Signal.h"

#include <fmt/format.h>

#include <array>
#include <numbers>
#include <string>
#include <utility>

namespace zelvo::ui {

namespace {

constexpr double kPi = std::numbers::pi_v<float>; // in single precision, like the stored angles

constexpr double kStep = 5; ///< of the slider, for depth and for angles (degrees)

struct Row {
    const char* title;
    double limit; ///< of the slider, in both directions
    const char* label;
    const char* unit;
    node::DefaultSCNNodePtr const node::Node::*axisNode; ///< null: the depth
    glm::vec3 axis;
};

// clang-format off
constexpr auto kRows = std::to_array<Row>({
    {QT_TRANSLATE_NOOP("zelvo::ui::TransformPanel", "Z Pos"), 250, "PositionZ", "",    nullptr,               {0, 0, 0}},
    {QT_TRANSLATE_NOOP("zelvo::ui::TransformPanel", "X Rot"), 180, "RotationX", " °", &node::Node::rotXNode, {1, 0, 0}},
    {QT_TRANSLATE_NOOP("zelvo::ui::TransformPanel", "Y Rot"), 180, "RotationY", " °", &node::Node::rotYNode, {0, 1, 0}},
    {QT_TRANSLATE_NOOP("zelvo::ui::TransformPanel", "Z Rot"), 180, "RotationZ", " °", &node::Node::rotZNode, {0, 0, 1}},
});

// clang-format on

const Row& rowOf(int tag) {
    return kRows.at(static_cast<std::size_t>(tag));
}

} // namespace

TransformPanel::TransformPanel(node::NodePtr edited, QObject* parent)
    : QObject(parent)
    , stackView(
          {.buttonEdgeInsets = {4, 0, 4, 0},
           .spacing = 3,
           .distribution = TabStackView::Distribution::fillEqually})
    , node(std::move(edited)) {
    for (int tag = 0; tag < static_cast<int>(kRows.size()); ++tag) {
        auto button = std::make_unique<HighlightButton>(
            ButtonFace{.title = tr(rowOf(tag).title)}, [this, tag] { setUpSlider(tag); });
        button->unselectedColor = kButtonColor;
        stackView.addArrangedSubview(*button);
        buttons.push_back(std::move(button));
    }
    buttons.front()->didTouch();
    setUpSlider(0);
}

void TransformPanel::setUpSlider(int tag) {
    shownTag = tag;
    const Row& row = rowOf(tag);
    auto made = std::make_unique<MySlider>(
        QString::fromUtf8(row.label),
        MySlider::Range{-row.limit, row.limit, kStep},
        QString::fromUtf8(row.unit));
    made->defaultValue = tag == 0 ? node->initialPosition.z : 0.0;
    made->setValue(valueOf(tag));
    made->valueChanged = [this, tag](double value) { assign(tag, value); };
    const auto former = std::exchange(posRotSlider, std::move(made));
    Q_EMIT sliderChanged(); // before the old slider is deleted, because the view still shows it
}

double TransformPanel::valueOf(int tag) const {
    const Row& row = rowOf(tag);
    if (row.axisNode == nullptr)
        return node->layoutPosition().z;
    // Measured around a fixed axis, because a negative angle can be stored as a positive one around
    // the opposite axis.
    const glm::vec4 rotation = (*node.*row.axisNode)->rotation();
    const float sense = glm::dot(glm::vec3(rotation), row.axis) < 0 ? -1.0f : 1.0f;
    return static_cast<double>(sense * rotation.w) * 180 / kPi;
}

void TransformPanel::assign(int tag, double value) {
    const Row& row = rowOf(tag);
    if (row.axisNode == nullptr) {
        glm::vec3 place = node->layoutPosition();
        place.z = static_cast<float>(value);
        node->setLayoutPosition(place);
    } else {
        (*node.*row.axisNode)->setRotation(glm::vec4(row.axis, value * kPi / 180));
    }
    node->isVisible = true;
    node->updateVisibility();
    signals().messageSignal.fire(
        fmt::format("{} {}", row.label, posRotSlider->text().toStdString()));
}

} // namespace zelvo::ui
