// SPDX-License-Identifier: MIT
#include "actions/HomePose.h"

#include "actions/TimingCurves.h"
#include "content/TextNode.h"
#include "platform/foundation/Check.h"
#include "platform/scene/SCNAction.h"

namespace zelvo::actions {

namespace {

using scene::SCNAction;

constexpr glm::vec3 kHome{0, 0, 0};
constexpr glm::vec3 kCameraYHandleHome{0, 1, 0};
constexpr glm::vec3 kParkingPlace{0, 0, 2000};

void runHomeMoves(scene::SCNNode& node, const glm::vec3& target, const Homecoming& how) {
    node.runAction(SCNAction::moveTo(target, how.duration, how.timing));
    node.runAction(SCNAction::rotateTo(kHome, how.duration, how.timing, scene::UnitArc::shortest));
    node.runAction(SCNAction::fadeIn(how.duration, how.timing));
    node.runAction(SCNAction::scaleTo(1.0, how.duration, how.timing));
}

void resetLetters(const content::TextNode& text, const Homecoming& how) {
    for (const auto& letter : text.letters()) {
        letter->removeAllActions();
        runHomeMoves(*letter, placeOf(*letter), how);
    }
}

} // namespace

glm::vec3 placeOf(const content::CharNode& letter) {
    CHECK(letter.originalPosition.has_value(), "a letter has no place in its text");
    return *letter.originalPosition;
}

void resetSceneNode(scene::SCNNode& node, const glm::vec3& target, const Homecoming& how) {
    node.removeAllActions();
    for (const std::string& key : node.animationKeys()) {
        node.removeAnimationForKey(key, how.duration);
    }
    runHomeMoves(node, target, how);
}

void resetRig(node::Node& node, const Homecoming& how) {
    if (const auto* text = dynamic_cast<const content::TextNode*>(&node))
        resetLetters(*text, how);
    resetSceneNode(node, kHome, how);
    for (const auto& level :
         {node.contentNode,
          node.xAxisNode,
          node.yAxisNode,
          node.zAxisNode,
          node.wiggleNode,
          node.shyNode}) {
        resetSceneNode(*level, kHome, how);
    }
}

void resetStage(const stage::Nodes& nodes, CameraHandles handles, const Homecoming& how) {
    const auto& holder = *nodes.mediaHolderNode;
    resetSceneNode(*nodes.mediaHolderNode, kHome, how);
    for (const auto& level :
         {holder.contentNode, holder.xAxisNode, holder.yAxisNode, holder.zAxisNode}) {
        resetSceneNode(*level, kHome, how);
    }
    for (const node::NodePtr& node : nodes.content()) {
        resetRig(*node, how);
    }
    resetSceneNode(*nodes.cameraNode, stage::kCameraHome, how);
    for (const auto& level :
         {nodes.cameraPinchNode,
          nodes.cameraSpecialPerspectiveNode,
          nodes.cameraSuperNode,
          nodes.cameraWiggle}) {
        resetSceneNode(*level, kHome, how);
    }
    if (handles == CameraHandles::leave)
        return;
    resetSceneNode(*nodes.cameraXHandle, kHome, how);
    resetSceneNode(*nodes.cameraYHandle, kCameraYHandleHome, how);
}

void parkNodes(const stage::Nodes& nodes) {
    const auto park = SCNAction::moveTo(kParkingPlace, 0);
    for (const node::NodePtr& node : nodes.content()) {
        node->runAction(park);
    }
}

void playOpeningFlyIn(const stage::Nodes& nodes) {
    const auto flyIn = SCNAction::sequence(
        {SCNAction::moveTo({0, 0, -800}, 0),
         SCNAction::moveTo(kHome, 0.4, bezierTiming(0.61f, 0.81f, 0.57f, 0.98f))});
    for (const node::NodePtr& node : nodes.content()) {
        node->runAction(flyIn);
    }
}

} // namespace zelvo::actions
