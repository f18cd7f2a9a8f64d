// SPDX-License-Identifier: MIT
#include "node/Node.h"

#include "platform/foundation/Check.h"
#include "shared/Palette.h"
#include "shared/Signal.h"

#include <fmt/format.h>
#include <glm/gtc/constants.hpp>
#include <glm/matrix.hpp>

#include <algorithm>
#include <cmath>

namespace zelvo::node {
namespace {

constexpr double kPhoneBorder = 2.6;
constexpr double kTabletBorder = 1.5;
constexpr double kQuarterTurnDuration = 0.23; // s

DefaultSCNNodePtr newLevel() {
    return std::make_shared<DefaultSCNNode>();
}

std::shared_ptr<scene::SCNPlane> newPlane() {
    return std::make_shared<scene::SCNPlane>();
}

float easeInOut(float t) {
    return 0.5f - 0.5f * std::cos(t * glm::pi<float>());
}

} // namespace

std::shared_ptr<Node>
Node::make(const glm::vec3& home, float size, const Surroundings& surroundings) {
    auto node = std::make_shared<Node>(Key{}, home, size, surroundings);
    node->link();
    return node;
}

Node::Node(Key /*key*/, const glm::vec3& home, float size, const Surroundings& surroundings)
    : allMaterials(look::makePairs(look::PairUse::everyNode))
    , borderMargin(surroundings.idiom == DeviceIdiom::phone ? kPhoneBorder : kTabletBorder)
    , initialPosition(home)
    , initialScale(size)
    , positionNode(newLevel())
    , orientationRotationNode(newLevel())
    , wiggleNode(newLevel())
    , shyNode(newLevel())
    , rotXNode(newLevel())
    , rotYNode(newLevel())
    , rotZNode(newLevel())
    , xAxisNode(newLevel())
    , yAxisNode(newLevel())
    , zAxisNode(newLevel())
    , contentNode(newLevel())
    , outlineNode(newLevel())
    , bgPlane(newPlane())
    , bgNode(std::make_shared<ReferNode>())
    , topPlane(newPlane())
    , rightPlane(newPlane())
    , bottomPlane(newPlane())
    , leftPlane(newPlane())
    , topPlaneNode(newLevel())
    , rightPlaneNode(newLevel())
    , bottomPlaneNode(newLevel())
    , leftPlaneNode(newLevel())
    , surroundings_(surroundings)
    , marks(surroundings.fonts)
    , frontColor_(ui::kPalette[ui::kNodeColorIndex])
    , bandColor_(ui::kPalette[ui::kNodeColorIndex]) {
    CHECK(
        surroundings.fonts != nullptr && surroundings.defaults != nullptr &&
            surroundings.runLoop != nullptr,
        "a node needs fonts, user defaults and a run loop");
}

void Node::link() {
    linkOutline();
    scene::SCNNodePtr above = shared_from_this();
    for (const DefaultSCNNodePtr& level :
         {positionNode,
          orientationRotationNode,
          wiggleNode,
          shyNode,
          rotXNode,
          rotYNode,
          rotZNode,
          xAxisNode,
          yAxisNode,
          zAxisNode}) {
        above->addChildNode(level);
        above = level;
    }
    zAxisNode->addChildNode(outlineNode);
    zAxisNode->addChildNode(contentNode);
    positionNode->position = initialPosition;
    positionNode->scale = glm::vec3(initialScale);
}

void Node::setCurrentMaterialName(std::optional<look::XMATClasses> wanted) {
    materialName = wanted;
    updateContent();
}

const look::XMATPtr& Node::materialNamed(look::XMATClasses wanted) const {
    CHECK(!allMaterials.empty(), "a node without material pairs");
    const auto found = std::ranges::find(
        allMaterials, wanted, [](const look::XMATPtr& pair) { return pair->name; });
    return found == allMaterials.end() ? allMaterials.front() : *found;
}

void Node::setFrontColor(const image::Color& color) {
    frontColor_ = color;
    if (currentMaterial)
        currentMaterial->setFrontColor(color);
}

void Node::setBandColor(const image::Color& color) {
    bandColor_ = color;
    if (currentMaterial)
        currentMaterial->setBandColor(color);
}

void Node::takeUpMaterial() {
    if (!materialName)
        return;
    currentMaterial = materialNamed(*materialName);
    currentMaterial->setFrontColor(frontColor_);
    currentMaterial->setBandColor(bandColor_);
}

void Node::updateContent() {}

void Node::resetLayout() {
    orientationRotationNode->runAction(scene::SCNAction::rotateTo(glm::vec3(0), 0));
    positionNode->position = initialPosition;
    for (const DefaultSCNNodePtr& level : {rotXNode, rotYNode, rotZNode}) {
        level->setRotation(glm::vec4(0));
    }
    scale2D = initialScale;
    applyScale();
}

void Node::quarterTurn() {
    orientationRotationNode->runAction(scene::SCNAction::rotateBy(
        {0, 0, -glm::half_pi<float>()}, kQuarterTurnDuration, easeInOut));
}

void Node::applyScale() {
    positionNode->scale = glm::vec3(scale2D);
    updateOutline();
    const auto percent = static_cast<int>(scale2D * 100.0f);
    ui::signals().messageSignal.fire(fmt::format("Size {} %", percent));
}

std::optional<float> Node::lowestInLayout() const {
    const geometry::Box box = layoutBox();
    if (!isVisible || box.isEmpty() || box.min == box.max)
        return std::nullopt;
    glm::mat4 layout(1);
    for (const auto& level : {positionNode, orientationRotationNode, rotXNode, rotYNode, rotZNode})
        layout *= level->transform();
    layout *= glm::inverse(contentNode->pivot);
    float lowest = layout[3].y;
    for (int axis = 0; axis < 3; ++axis)
        lowest += std::min(layout[axis].y * box.min[axis], layout[axis].y * box.max[axis]);
    return lowest;
}

void Node::updateVisibility() {
    contentNode->isHidden = !isVisible;
}

} // namespace zelvo::node
