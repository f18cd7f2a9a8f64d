// SPDX-License-Identifier: MIT
// Tab OT2: eased and letter exits.
#include "actions/TimingCurves.h"
#include "catalogue/CommonForm.h"
#include "catalogue/LetterRecipe.h"
#include "catalogue/Tabs.h"

#include <array>

namespace zelvo::catalogue {

namespace {

using scene::SCNAction;

void screwOut(const Take& take) {
    for (const node::NodePtr& node : take.nodes) {
        moveFromTo(*node, kHome, {0, 0, -800}, {take.d, take.timing});
        rotateFromTo(*node, {0, 0, 360}, kUpright, {take.d, take.timing});
    }
}

void accelerateOut(const Take& take) {
    const auto turn = SCNAction::sequence({
        SCNAction::rotateTo(kHome, 0, scene::TimingFunction(), scene::UnitArc::shortest),
        rotateTo({0, 0, -30}, {take.d, take.timing}),
    });
    for (const node::NodePtr& node : take.nodes) {
        moveFromTo(*node, kHome, {0, 0, 800}, {take.d, take.timing});
        node->runAction(turn);
    }
}

void fadeOut(const Take& take) {
    const auto vanish = SCNAction::sequence({SCNAction::fadeIn(0), SCNAction::fadeOut(take.d)});
    for (const node::NodePtr& node : take.nodes) {
        moveFromTo(*node, kHome, {0, 0, 10}, {take.d});
        node->contentNode->runAction(vanish);
    }
}

/// How letters leave. Shares are of d.
struct LetterExit {
    double stagger; ///< seconds, at every speed
    glm::vec3 (*target)(const glm::vec3& place);
    double fadeWaitShare;
    double fadeShare;
};

/// `besides` starts what a letter does in addition to moving and fading.
void letLettersLeave(
    const Letters& letters,
    const LetterExit& exit,
    const Pace& pace,
    const std::function<void(content::CharNode&)>& besides = {}) {
    const auto vanish = SCNAction::sequence({
        SCNAction::wait(exit.fadeWaitShare * pace.duration),
        SCNAction::fadeOut(exit.fadeShare * pace.duration),
    });
    staggerLetters(
        letters,
        {exit.stagger},
        BeforeTurn::asIs,
        [=](content::CharNode& letter, const glm::vec3& place) {
            moveFromTo(letter, place, exit.target(place), pace);
            letter.runAction(vanish);
            if (besides)
                besides(letter);
        });
}

void fallingOut(const Take& take) {
    constexpr LetterExit kExit{
        .stagger = 0.09,
        .target = [](const glm::vec3& place) { return glm::vec3(place.x, -800.0f, place.z); },
        .fadeWaitShare = 0.85,
        .fadeShare = 0.13,
    };
    const Letters letters = shuffled(lettersOf(take.nodes));
    const std::vector<node::NodePtr> others = nonTextNodes(take.nodes);
    const Pace pace{take.d, take.restTiming};
    const double wait = static_cast<double>(letters.size()) * kExit.stagger * 0.48;
    moveAfterWait(others, kHome, {0, -800, 0}, wait, pace);
    for (const node::NodePtr& node : others) {
        rotateFromToKeyless(*node, kUpright, {0, 20, -30}, pace);
    }
    letLettersLeave(letters, kExit, {take.d, take.timing}, [d = take.d](content::CharNode& letter) {
        const Degrees end{randomOffset(36), randomOffset(36), randomOffset(36)};
        rotateFromToKeyless(letter, kUpright, end, {d, actions::sineIn});
    });
}

void accelerateLettersOut(const Take& take) {
    constexpr LetterExit kExit{
        .stagger = 0.05,
        .target = [](const glm::vec3& place) { return glm::vec3(place.x, place.y, 800.0f); },
        .fadeWaitShare = 0.85,
        .fadeShare = 0.13,
    };
    const Letters letters = shuffled(lettersOf(take.nodes));
    const double wait = static_cast<double>(letters.size() + 1) * kExit.stagger;
    moveAfterWait(nonTextNodes(take.nodes), kHome, {0, 0, 800}, wait, {take.d, take.restTiming});
    letLettersLeave(letters, kExit, {take.d, take.timing});
}

void dropLeftOut(const Take& take) {
    constexpr LetterExit kExit{
        .stagger = 0.04,
        .target = [](const glm::vec3& place) { return place + glm::vec3(800.0f, 0.0f, 0.0f); },
        .fadeWaitShare = 0.75,
        .fadeShare = 0.22,
    };
    const Letters letters = lettersOf(take.nodes);
    const double wait = static_cast<double>(letters.size() + 1) * kExit.stagger * 0.91;
    moveAfterWait(nonTextNodes(take.nodes), kHome, {800, 0, 0}, wait, {take.d, take.restTiming});
    letLettersLeave(letters, kExit, {take.d, take.timing});
}

constexpr Curve kAccelerating = elasticIn(1.25f);
constexpr Curve kFallingLetters = bezier(0.8f, 0.0f, 1.0f, 0.0f);
constexpr Curve kFallingOthers = bezier(0.865f, 0.0f, 1.0f, 0.0f);
constexpr Curve kDroppingLetters = bezier(0.82f, -0.4f, 0.66f, 0.73f);
constexpr Curve kDroppingOthers = bezier(0.72f, -0.3f, 0.66f, 0.73f);

// clang-format off
constexpr auto kRows = std::to_array<Row>({
    {{"", "Screw"},     "Screw Out",     1.0,  kSineIn,          screwOut,             kNoCurve       },
    {{"", "Falling"},   "Falling Out",   0.75, kFallingLetters,  fallingOut,           kFallingOthers },
    {{"", "Accel 1"},   "Accel 1 Out",   0.79, kAccelerating,    accelerateLettersOut, kAccelerating  },
    {{"", "Accel 2"},   "Accel 2 Out",   1.2,  kLinear,          accelerateOut,        kNoCurve       },
    {{"", "Fade"},      "Fade Out",      0.66, kNoCurve,         fadeOut,              kNoCurve       },
    {{"", "Drop Left"}, "Drop Left Out", 0.7,  kDroppingLetters, dropLeftOut,          kDroppingOthers},
});
// clang-format on

} // namespace

std::vector<Button> showOut2() {
    return commonButtons(kRows);
}

} // namespace zelvo::catalogue
