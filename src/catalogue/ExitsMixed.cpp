// SPDX-License-Identifier: MIT
// Tab OT3: mixed exits.
#include "catalogue/BuildingBlocks.h"
#include "catalogue/CommonForm.h"
#include "catalogue/LetterRecipe.h"
#include "catalogue/Tabs.h"
#include "platform/foundation/Random.h"

#include <array>

namespace zelvo::catalogue {

namespace {

using scene::SCNAction;

void leaveTo(node::Node& node, const glm::vec3& end, const Pace& pace) {
    moveFromTo(node, kHome, end, pace);
}

void diffHorizontalOut(const Take& take) {
    const Pace pace{take.d, take.timing};
    for (const node::NodePtr& node : take.nodes) {
        if (!isText(*node))
            leaveTo(*node, {0, 0, -800}, pace);
        if (node == take.stage.textNode1)
            leaveTo(*node, {-750, 0, 0}, pace);
        if (node == take.stage.textNode2)
            leaveTo(*node, {750, 0, 0}, pace);
    }
}

void diffVerticalOut(const Take& take) {
    const Pace pace{take.d, take.timing};
    moveAfterWait(nonTextNodes(take.nodes), kHome, {0, 0, 800}, 0.095 * take.d, pace);
    for (const node::NodePtr& node : take.nodes) {
        if (node == take.stage.textNode1)
            leaveTo(*node, {0, 700, 0}, pace);
        if (node == take.stage.textNode2)
            leaveTo(*node, {0, -700, 0}, pace);
    }
}

void tilt(const Take& take, const glm::vec3& end, const Degrees& angles) {
    for (const node::NodePtr& node : take.nodes) {
        leaveTo(*node, end, {take.d, take.timing});
        rotateFromTo(*node, kUpright, angles, {take.d, take.timing});
    }
}

void tilt1Out(const Take& take) {
    tilt(take, {0, 0, 700}, {0, 380, 40});
}

void tilt2Out(const Take& take) {
    tilt(take, {0, -30, 700}, {-135, -60, -20});
}

/// Rotates a letter at random around x and z. At the end its rotation jumps back to 0.
void tumble(content::CharNode& letter, const Pace& pace) {
    const auto aboutX = static_cast<float>(foundation::arc4random_uniform(360));
    const auto aboutZ = static_cast<float>(foundation::arc4random_uniform(360));
    const auto turn = SCNAction::sequence({
        rotateTo({0, 0, 0}),
        rotateTo({aboutX, 0, aboutZ}, pace),
        rotateTo({0, 0, 0}),
    });
    letter.runAction(turn, kRotateKey);
}

void frontRandomOut(const Take& take) {
    const Pace pace{take.d, take.timing};
    for (const node::NodePtr& node : take.nodes) {
        leaveTo(*node, {0, 0, 800}, pace);
        if (!isText(*node))
            rotateFromToKeyless(*node, kUpright, {40, 40, 0}, pace);
    }
    for (const content::CharNodePtr& letter : lettersOf(take.nodes)) {
        tumble(*letter, pace);
    }
}

void explodeNode(node::Node& node, const Pace& pace) {
    leaveTo(node, {randomOffset(280), randomOffset(280), -800.0f}, pace);
    rotateFromToKeyless(node, kUpright, randomTurn(20, 180), pace);
}

void explodeLetter(content::CharNode& letter, const Pace& pace) {
    const glm::vec3 place = placeOf(letter);
    const glm::vec3 offset{randomOffset(1400), randomOffset(1400), randomOffset(1400)};
    moveFromTo(letter, place, place + offset, pace);
    rotateFromTo(letter, kUpright, randomTurn(45, 360), pace);
    letter.runAction(SCNAction::sequence({
        SCNAction::wait(0.45 * pace.duration),
        SCNAction::fadeOut(0.4 * pace.duration),
    }));
}

void exploOut(const Take& take) {
    const Pace pace{take.d, take.timing};
    for (const node::NodePtr& node : nonTextNodes(take.nodes)) {
        explodeNode(*node, pace);
    }
    for (const content::CharNodePtr& letter : lettersOf(take.nodes)) {
        explodeLetter(*letter, pace);
    }
}

constexpr Curve kDiffHor = bezier(0.5f, -0.02f, 0.8f, 0.0f);
constexpr Curve kDiffVer = bezier(0.45f, -0.02f, 0.35f, 0.0f);

// clang-format off
constexpr auto kRows = std::to_array<Row>({
    {{"", "Diff Hor"},     "Diff. Directions Horizontal Out", 0.9,  kDiffHor, diffHorizontalOut},
    {{"", "Diff Ver"},     "Diff. Directions Vertical Out",   0.9,  kDiffVer, diffVerticalOut  },
    {{"", "Tilt 1"},       "Tilt 1 Out",                      1.5,  kSineIn,  tilt1Out         },
    {{"", "Tilt 2"},       "Tilt 2 Out",                      1.2,  kSineIn,  tilt2Out         },
    {{"", "Front Random"}, "Front Random Out",                1.55, kSineIn,  frontRandomOut   },
    {{"", "Explo"},        "Explo Out",                       0.97, kLinear,  exploOut         },
});
// clang-format on

} // namespace

std::vector<Button> showOut3() {
    return commonButtons(kRows);
}

} // namespace zelvo::catalogue
