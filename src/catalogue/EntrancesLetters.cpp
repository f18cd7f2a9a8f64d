// SPDX-License-Identifier: MIT
// Tab IN3: letter and random entrances.
#include "catalogue/CommonForm.h"
#include "catalogue/LetterRecipe.h"
#include "catalogue/Tabs.h"

#include <array>

namespace zelvo::catalogue {

namespace {

using scene::SCNAction;

void implodeNode(node::Node& node, const Pace& pace) {
    const glm::vec3 start{randomOffset(280), randomOffset(280), -800.0f};
    moveFromTo(node, start, kHome, pace);
    rotateFromToKeyless(node, randomTurn(20, 180), kUpright, pace);
}

void implodeLetter(content::CharNode& letter, const Pace& pace) {
    const glm::vec3 place = placeOf(letter);
    const glm::vec3 offset{randomOffset(1200), randomOffset(1200), 0.0f};
    moveFromTo(letter, place + offset, place, pace);
    rotateFromTo(letter, randomTurn(45, 360), kUpright, pace);
}

void implodeIn(const Take& take) {
    for (const node::NodePtr& node : nonTextNodes(take.nodes)) {
        implodeNode(*node, {take.d, take.timing});
    }
    for (const content::CharNodePtr& letter : lettersOf(take.nodes)) {
        implodeLetter(*letter, {0.93 * take.d, take.timing});
    }
}

void teaseIn(const Take& take) {
    constexpr float kSmallAngle = 12;
    constexpr float kLargeAngle = 27;
    const auto step = [&](double share) { return Pace{share * take.d, take.timing}; };
    const Pace t1 = step(0.36), t2 = step(0.17), t3 = step(0.22), t4 = step(0.22);
    const auto move = SCNAction::sequence({
        moveTo({0, 0, -850}),
        moveTo({0, 0, 170}, t1),
        moveTo({0, 0, -250}, t2),
        moveTo({0, 0, 170}, t3),
        moveTo(kHome, t4),
    });
    const auto turn = SCNAction::sequence({
        rotateTo({0, 0, 0}),
        rotateTo({-kSmallAngle, -kLargeAngle, 3}, t1),
        rotateTo({14, 0, 0}, t2),
        rotateTo({-kSmallAngle, kLargeAngle, -3}, t3),
        rotateTo({0, 0, 0}, t4),
    });
    for (const node::NodePtr& node : take.nodes) {
        node->runAction(move);
        node->runAction(turn, kRotateKey);
    }
}

/// Keeps the first angles for a tenth of the time, then rotates to 0.
scene::SCNActionPtr lateTurn(const Degrees& from, const Take& take) {
    return SCNAction::sequence({
        rotateTo(from),
        SCNAction::wait(0.1 * take.d),
        rotateTo({0, 0, 0}, {0.9 * take.d, take.timing}),
    });
}

void rollIn(const Take& take) {
    for (const node::NodePtr& node : take.nodes) {
        moveFromTo(*node, {0, 0, 850}, kHome, {take.d, take.timing});
        node->runAction(lateTurn({250, 0, 0}, take), kRotateKey);
    }
}

void composeIn(const Take& take) {
    for (const node::NodePtr& node : take.nodes) {
        moveFromTo(*node, {0, 0, 800}, kHome, {1.2 * take.d, take.timing});
    }
    for (const content::CharNodePtr& letter : lettersOf(take.nodes)) {
        const float aboutX = randomDegrees(45, 110);
        const float aboutZ = randomDegrees(45, 110);
        letter->runAction(lateTurn({aboutX, 0, aboutZ}, take), kRotateKey);
    }
}

void steppedIn(const Take& take, float x) {
    constexpr double kStagger = 0.05; // seconds, at every speed
    const Pace pace{take.d, take.timing};
    const Letters letters = lettersOf(take.nodes);
    // All letters start at the same x, not at their own.
    staggerLetters(
        letters,
        {kStagger},
        BeforeTurn::faded,
        [pace, x](content::CharNode& letter, const glm::vec3& place) {
            moveFromTo(letter, {x, place.y, place.z}, place, pace);
            letter.runAction(SCNAction::fadeIn(0.05 * pace.duration));
        });
    const double wait = static_cast<double>(letters.size() + 1) * kStagger * 0.54;
    moveAfterWait(nonTextNodes(take.nodes), {x, 0, 0}, kHome, wait, pace);
}

void steppedLeftIn(const Take& take) {
    steppedIn(take, -800);
}

void steppedRightIn(const Take& take) {
    steppedIn(take, 800);
}

constexpr Curve kStepped = spring({.damping = 55, .mass = 1.6f, .stiffness = 480, .velocity = 25});
constexpr Curve kImplode = elasticOut(1.8f);
constexpr Curve kTease = bezier(0.41f, 0.39f, 0.3f, 1.08f);
constexpr Curve kRoll = elasticOut(1.0f);
constexpr Curve kCompose = elasticOut(1.2f);

// clang-format off
constexpr auto kRows = std::to_array<Row>({
    {{"", "Implode"},   "Implode In",       1.3,  kImplode, implodeIn     },
    {{"", "Tease"},     "Tease In",         1.16, kTease,   teaseIn       },
    {{"", "Roll"},      "Roll In",          1.3,  kRoll,    rollIn        },
    {{"", "Compose"},   "Compose In",       1.3,  kCompose, composeIn     },
    {{"", "Stepped L"}, "Stepped Left In",  1.55, kStepped, steppedLeftIn },
    {{"", "Stepped R"}, "Stepped Right In", 1.55, kStepped, steppedRightIn},
});
// clang-format on

} // namespace

std::vector<Button> showIn3() {
    return commonButtons(kRows);
}

} // namespace zelvo::catalogue
