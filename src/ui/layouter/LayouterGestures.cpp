// SPDX-License-Identifier: MIT
// What fingers, pointer and keys do with the content on the stage while the style panel is open.
#include "model/Model.h"
#include "ui/layouter/LayouterMenu.h"
#include "ui/layouter/NodePicker.h"
#include "ui/layouter/TransformPanel.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zelvo::ui {

namespace {

using actions::GestureState;

/// A drag is measured in points of a view of this size. A point moves the node by kUnitsADepth for
/// each unit between the camera and the node's middle. The lens would need 0.0016 there. The factor
/// is 4 % less: so what stays under the pointer is nearer by 4 % of the distance, which lies between
/// the middle and the front of usual letters.
constexpr glm::vec2 kView{1280, 720};
constexpr float kUnitsADepth = 0.00154f;

constexpr float kMinScale = 0.15f;
constexpr float kMaxScale = 5;
constexpr float kGrowth = 0.7f;  ///< growing is slower than shrinking
constexpr float kNoScale = 0.1f; ///< taken for a scale that is no number

template <class Gesture> StagePlace placeOf(const Gesture& gesture) {
    return {gesture.location, gesture.viewSize};
}

} // namespace

node::NodePtr LayouterMenu::hit(const StagePlace& place) const {
    return nodeAt(services.model.nodes(), place, currentNode_);
}

void LayouterMenu::handleTap(const TapGesture& tap) {
    setCurrentNode(hit(placeOf(tap)));
}

void LayouterMenu::handleDoubleTap(const TapGesture& tap) {
    setCurrentNode(hit(placeOf(tap)));
    (void)openSelected();
}

void LayouterMenu::handlePan(const PanGesture& pan) {
    if (pan.state == GestureState::began) {
        previousLocation = pan.start;
        hittedNodeWhileBeganPanning = hit({pan.start, pan.viewSize});
    }
    if (!hittedNodeWhileBeganPanning) {
        cameraGestures.handlePan(pan);
        return;
    }
    const bool goesOn = pan.state == GestureState::began || pan.state == GestureState::changed;
    if (goesOn && currentNode_)
        drag(pan);
    setCursor(goesOn && currentNode_ ? Qt::ClosedHandCursor : Qt::OpenHandCursor);
}

void LayouterMenu::drag(const PanGesture& pan) {
    if (hittedNodeWhileBeganPanning != currentNode_)
        setCurrentNode(hittedNodeWhileBeganPanning);
    glm::vec3 place = currentNode_->layoutPosition();
    const float eye = services.model.nodes().cameraNode->position.value().z;
    const float factor = (eye - place.z) * kUnitsADepth;
    const glm::vec2 moved =
        (pan.location - std::exchange(previousLocation, pan.location)) / pan.viewSize * kView;
    place.x += factor * moved.x;
    place.y -= factor * moved.y;
    currentNode_->setLayoutPosition(place);
}

void LayouterMenu::handlePinch(const PinchGesture& pinch) {
    if (pinch.state != GestureState::changed) {
        lastPinchScale = 1;
        return;
    }
    // Keys can take another node, or none, in the middle of a pinch.
    const float reading = std::isnan(pinch.scale) ? kNoScale : pinch.scale;
    const float change = reading - std::exchange(lastPinchScale, reading);
    if (currentNode_)
        resize(currentNode_->scale2D + (change < 0 ? change : change * kGrowth));
}

void LayouterMenu::resize(float scale) {
    currentNode_->scale2D = std::clamp(scale, kMinScale, kMaxScale);
    currentNode_->applyScale();
}

void LayouterMenu::handleHover(const std::optional<Hover>& hover) {
    const node::NodePtr found = hover ? hit(placeOf(*hover)) : nullptr;
    if (found && found == currentNode_) {
        setCursor(Qt::OpenHandCursor);
    } else {
        setCursor(found ? Qt::PointingHandCursor : Qt::ArrowCursor);
    }
    pointAt(found);
}

void LayouterMenu::pointAt(const node::NodePtr& node) {
    if (std::exchange(pointedNode, node) != node)
        showOutlines();
}

void LayouterMenu::setCursor(Qt::CursorShape shape) {
    if (std::exchange(cursor_, shape) != shape)
        Q_EMIT cursorChanged();
}

bool LayouterMenu::nudge(double right, double up, double near) {
    if (!currentNode_)
        return false;
    currentNode_->setLayoutPosition(
        currentNode_->layoutPosition() + glm::vec3(glm::dvec3(right, up, near)));
    if (auto* panel = qobject_cast<TransformPanel*>(strip.get()))
        panel->readNode();
    return true;
}

bool LayouterMenu::grow(double factor) {
    if (!currentNode_)
        return false;
    resize(currentNode_->scale2D * static_cast<float>(factor));
    return true;
}

bool LayouterMenu::takeNext(int step) {
    if (currentOption_ == CurrentOption::audio) // Tab steps through the timeline
        return false;
    const auto content = services.model.nodes().content();
    const auto count = static_cast<int>(content.size());
    const auto found = std::ranges::find(content, currentNode_);
    const bool hasNone = found == content.end();
    const int from = hasNone ? (step > 0 ? -1 : count) : static_cast<int>(found - content.begin());
    const int next = from + step;
    if (next < 0 || next >= count)
        return false;
    setCurrentNodeFromButton(next);
    return true;
}

bool LayouterMenu::openSelected() {
    writeAction();
    const bool isImage = std::dynamic_pointer_cast<content::ImageNode>(currentNode_) != nullptr;
    if (isImage)
        showImportOptions();
    return isImage || writing;
}

} // namespace zelvo::ui
