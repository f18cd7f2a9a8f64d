// SPDX-License-Identifier: MIT
// Tab IN2: mixed entrances of whole nodes.
#include "actions/TimingCurves.h"
#include "catalogue/BuildingBlocks.h"
#include "catalogue/CommonForm.h"
#include "catalogue/Tabs.h"

#include <array>

namespace zelvo::catalogue {

namespace {

using actions::sineOut;
using scene::SCNAction;

void comeFrom(node::Node& node, const glm::vec3& start, const Pace& pace) {
    moveFromTo(node, start, kHome, pace);
}

void diffHorizontalIn(const Take& take) {
    const Pace pace{take.d, take.timing};
    for (const node::NodePtr& node : take.nodes) {
        if (node == take.stage.imageNode)
            comeFrom(*node, {0, 800, 0}, pace);
        if (node == take.stage.mediaNode)
            comeFrom(*node, {0, -800, 0}, pace);
        if (node == take.stage.textNode1)
            comeFrom(*node, {750, 0, 0}, pace);
        if (node == take.stage.textNode2)
            comeFrom(*node, {-750, 0, 0}, pace);
    }
}

void diffVerticalIn(const Take& take) {
    const Pace textPace{0.83 * take.d, take.timing};
    for (const node::NodePtr& node : take.nodes) {
        if (!isText(*node))
            comeFrom(*node, {0, 0, -800}, {take.d, take.timing});
        if (node == take.stage.textNode1)
            comeFrom(*node, {0, 400, 0}, textPace);
        if (node == take.stage.textNode2)
            comeFrom(*node, {0, -400, 0}, textPace);
    }
}

void flipIn(const Take& take) {
    const auto move = SCNAction::sequence({
        moveTo({0, 0, 850}),
        moveTo({0, 0, 30}, {0.22 * take.d, take.timing}),
        moveTo(kHome, {0.98 * take.d, sineOut}),
    });
    const auto turn = SCNAction::sequence({
        rotateTo({-60, -240, 0}),
        SCNAction::wait(0.1 * take.d),
        rotateTo({0, -6, 0}, {0.22 * take.d, take.timing}),
        rotateTo({0, 0, 0}, {0.88 * take.d, sineOut}),
    });
    for (const node::NodePtr& node : take.nodes) {
        node->runAction(move);
        node->runAction(turn, kRotateKey);
    }
}

void copterIn(const Take& take) {
    for (const node::NodePtr& node : take.nodes) {
        comeFrom(*node, {0, -800, 0}, {take.d, take.timing});
        rotateFromTo(*node, {0, -1040, 0}, kUpright, {take.d, take.timing});
    }
}

void screwIn(const Take& take) {
    for (const node::NodePtr& node : take.nodes) {
        comeFrom(*node, {0, 0, -850}, {take.d, take.timing});
        rotateFromTo(*node, {0, 0, -720}, kUpright, {take.d, take.timing});
    }
}

void fadeIn(const Take& take) {
    const auto appear = SCNAction::sequence({
        SCNAction::fadeOut(0),
        SCNAction::wait(0.2 * take.d),
        SCNAction::fadeIn(0.8 * take.d),
    });
    for (const node::NodePtr& node : take.nodes) {
        comeFrom(*node, {0, 0, -20}, {take.d, take.timing});
        node->contentNode->runAction(appear);
    }
}

constexpr Curve kDiff = bezier(0.61f, 0.81f, 0.68f, 1.0f);
constexpr Curve kSwift = bezier(0.1f, 0.7f, 0.5f, 0.98f);
constexpr Curve kFlip = bezier(0.25f, 0.1f, 0.24f, 1.0f);
constexpr Curve kScrew = bezier(0.36f, 0.6f, 0.45f, 1.0f);

// clang-format off
constexpr auto kRows = std::to_array<Row>({
    {{"", "Diff Hor"}, "Diff. Directions Horizontal In", 1.0,  kDiff,  diffHorizontalIn},
    {{"", "Diff Ver"}, "Diff. Directions Vertical In",   0.86, kDiff,  diffVerticalIn  },
    {{"", "Flip"},     "Flip In",                        1.63, kFlip,  flipIn          },
    {{"", "Copter"},   "Copter In",                      1.0,  kSwift, copterIn        },
    {{"", "Screw"},    "Screw In",                       1.1,  kScrew, screwIn         },
    {{"", "Fade"},     "Fade In",                        0.92, kSwift, fadeIn          },
});
// clang-format on

} // namespace

std::vector<Button> showIn2() {
    return commonButtons(kRows);
}

} // namespace zelvo::catalogue
