// SPDX-License-Identifier: MIT
// Tab IN4: eased and letter entrances.
#include "actions/TimingCurves.h"
#include "catalogue/CommonForm.h"
#include "catalogue/LetterRecipe.h"
#include "catalogue/Tabs.h"

#include <array>

namespace zelvo::catalogue {

namespace {

using actions::sineInOut;
using actions::sineOut;
using scene::SCNAction;

constexpr double kStagger = 0.05; // seconds, at every speed

/// The nodes come from behind one after another; each waits for a share of d.
void oneByOne(const Take& take, double waitShare) {
    double number = 0;
    for (const node::NodePtr& node : take.nodes) {
        moveAfterWait(
            {node}, {0, 0, -800}, kHome, number * take.d * waitShare, {take.d, take.timing});
        ++number;
    }
}

void elasticNodesIn(const Take& take) {
    oneByOne(take, 0.001);
}

void delayedIn(const Take& take) {
    oneByOne(take, 0.23);
}

void smoothIn(const Take& take) {
    const auto move = SCNAction::sequence({
        moveTo({0, -30, 900}),
        moveTo({0, 0, -12}, {0.64 * take.d, sineOut}),
        moveTo(kHome, {0.36 * take.d, sineInOut}),
    });
    for (const node::NodePtr& node : take.nodes) {
        node->runAction(move);
        rotateFromToKeyless(*node, {-75, 56, 20}, kUpright, {0.6 * take.d, sineInOut});
    }
}

void backSpinIn(const Take& take) {
    for (const node::NodePtr& node : take.nodes) {
        moveFromTo(*node, {0, 0, -1000}, kHome, {take.d, take.timing});
        rotateFromTo(*node, {-180, -540, 0}, kUpright, {take.d, take.timing});
    }
}

void droppingIn(const Take& take) {
    constexpr float kDepth = 800;
    const Pace pace{take.d, take.timing};
    staggerLetters(
        shuffled(lettersOf(take.nodes)),
        {.perLetter = kStagger, .lead = 0.076 * take.d},
        BeforeTurn::faded,
        [pace](content::CharNode& letter, const glm::vec3& place) {
            moveFromTo(letter, {place.x, place.y, kDepth}, place, pace);
            letter.runAction(SCNAction::fadeIn(0.1 * pace.duration));
        });
    for (const node::NodePtr& node : nonTextNodes(take.nodes)) {
        moveFromTo(*node, {0, 0, kDepth}, kHome, {1.5 * take.d, take.timing});
    }
}

// Letters come from above, other nodes from below.
void fallingIn(const Take& take) {
    constexpr float kHeight = 800;
    const Pace pace{take.d, take.timing};
    const Letters letters = lettersOf(take.nodes);
    staggerLetters(
        letters,
        {kStagger},
        BeforeTurn::faded,
        [pace](content::CharNode& letter, const glm::vec3& place) {
            moveFromTo(letter, {place.x, kHeight, place.z}, place, pace);
            letter.runAction(SCNAction::fadeIn(0.07 * pace.duration));
        });
    const double wait = static_cast<double>(letters.size() + 1) * kStagger * 0.8;
    moveAfterWait(
        nonTextNodes(take.nodes), {0, -kHeight, 0}, kHome, wait, {take.d, take.restTiming});
}

constexpr Curve kElastic = spring({.damping = 42, .mass = 1.3f, .stiffness = 680, .velocity = 25});
constexpr Curve kDropping = spring({.damping = 40, .mass = 1.2f, .stiffness = 480, .velocity = 25});
constexpr Curve kFalling = spring({.damping = 37, .mass = 1.3f, .stiffness = 480, .velocity = 25});
constexpr Curve kRising = spring({.damping = 57, .mass = 1.3f, .stiffness = 480, .velocity = 25});
constexpr Curve kDelayed = elasticOut(2.0f);
constexpr Curve kBackSpin = bezier(0.1f, 0.7f, 0.5f, 0.98f);

// clang-format off
constexpr auto kRows = std::to_array<Row>({
    {{"", "Elastic"},   "Elastic In",   4.5,  kElastic,  elasticNodesIn, kNoCurve},
    {{"", "Delayed"},   "Delayed In",   0.66, kDelayed,  delayedIn,      kNoCurve},
    {{"", "Smooth"},    "Smooth In",    1.8,  kNoCurve,  smoothIn,       kNoCurve},
    {{"", "Back Spin"}, "Back Spin In", 1.0,  kBackSpin, backSpinIn,     kNoCurve},
    {{"", "Dropping"},  "Dropping In",  1.45, kDropping, droppingIn,     kNoCurve},
    {{"", "Falling"},   "Falling In",   1.65, kFalling,  fallingIn,      kRising },
});
// clang-format on

} // namespace

std::vector<Button> showIn4() {
    return commonButtons(kRows);
}

} // namespace zelvo::catalogue
