// SPDX-License-Identifier: MIT
#include "SceneSupport.h"

#include <gmock/gmock.h>

#include <array>
#include <numbers>

namespace zelvo::scene {
namespace {

using KeyPath = CAKeyframeAnimation::KeyPath;
using testing::ElementsAre;
using testing::IsEmpty;

using Values = std::vector<glm::vec4>;

/// Four seconds; the second value stands after the first of them, the third after the second.
CAKeyframeAnimation journey(const Values& values = {{}, {10, 0, 0, 0}, {10, 8, 0, 0}, {}}) {
    CAKeyframeAnimation animation;
    animation.values = values;
    animation.keyTimes = {0, 0.25, 0.5, 1};
    animation.duration = 4;
    return animation;
}

glm::vec3 drawnPlace(const SCNNode& node) {
    const glm::vec4 place = node.worldTransform()[3];
    return {place.x, place.y, place.z};
}

TEST(TimingCurve, IsSolvedForTime) {
    struct Row {
        CAMediaTimingFunction curve;
        float t, value;
    };

    // At s = 1/2, x of a curve is (1 + 3 x1 + 3 x2) / 8; y is the same with y1 and y2. Steep curves
    // must be solved, too.
    // clang-format off
    for (const auto& [curve, t, value] : std::to_array<Row>({
             {{0.42f, 0, 1, 1},           (1 + 4.26f) / 8, 0.5f     },
             {{0, 0.77f, 0.65f, 1},       2.95f / 8,       6.31f / 8},
             {{0.7f, 0.02f, 0.7f, 0.96f}, 5.2f / 8,        3.94f / 8},
             {{0, 0, 1, 1},               0.3f,            0.3f     },
             {{0, 2, 0, 2},               1,               1        },
    })) {
        // clang-format on
        EXPECT_NEAR(curve.at(t), value, 2e-4f);
    }
}

TEST(Keyframes, GoThroughTheirValuesEachSegmentAlongItsOwnCurve) {
    Stage stage;
    auto animation = journey();
    // At half the time the value is 0.2: s = 1/2 of the curve (0.5, 0, 0.5, y) with y = 0.2.
    animation.timingFunctions = {{0, 0, 1, 1}, {0.5f, 0, 0.5f, 0.2f}};
    stage.node->addAnimation(animation, "position");
    stage.apply({7, 7.5});
    expectNear(drawnPlace(*stage.node), {5, 0, 0});
    stage.apply({8});
    expectNear(drawnPlace(*stage.node), {10, 0, 0});
    stage.apply({8.5});
    expectNear(drawnPlace(*stage.node), {10, 1.6f, 0}, 1e-3f);
    stage.apply({10});
    expectNear(drawnPlace(*stage.node), {5, 4, 0});
    EXPECT_THAT(stage.node->animationKeys(), ElementsAre("position"));
    stage.apply({11});
    EXPECT_THAT(stage.node->animationKeys(), IsEmpty());
    expectNear(drawnPlace(*stage.node), {0, 0, 0});
}

TEST(Keyframes, BendTheWholeAndRunInRounds) {
    Stage stage;
    auto animation = journey();
    animation.timingFunction = {0.5f, 0, 0.5f, 0.2f}; // at half the time, a fifth of the way
    animation.repeatCount = 2;
    stage.node->addAnimation(animation, "key");
    stage.apply({0, 2});
    expectNear(drawnPlace(*stage.node), {8, 0, 0}, 1e-2f);
    stage.apply({6});
    expectNear(drawnPlace(*stage.node), {8, 0, 0}, 1e-2f);
    stage.apply({8});
    EXPECT_THAT(stage.node->animationKeys(), IsEmpty());
}

TEST(Keyframes, LieOverWhatActionsWriteAndLeaveItAlone) {
    Stage stage;
    auto animation = journey(Values(4, {20, 0, 0, 0}));
    animation.fadeInDuration = 1;
    animation.fadeOutDuration = 2;
    stage.node->runAction(SCNAction::moveTo({0, 4, 0}, 4));
    stage.node->addAnimation(animation, "key");
    stage.apply({0});
    expectNear(drawnPlace(*stage.node), {0, 0, 0});
    stage.apply({0.5}); // half faded in
    expectNear(drawnPlace(*stage.node), {10, 0.25f, 0});
    expectNear(stage.node->position, {0, 0.5f, 0});
    stage.apply({1});
    expectNear(drawnPlace(*stage.node), {20, 0, 0});
    stage.apply({3}); // half faded out
    expectNear(drawnPlace(*stage.node), {10, 1.5f, 0});
    stage.apply({4});
    expectNear(drawnPlace(*stage.node), {0, 4, 0});
}

TEST(Keyframes, TurnTheShortWay) {
    constexpr float kQuarter = std::numbers::pi_v<float> / 2;
    Stage stage;
    auto animation = journey({{}, {0, 2, 0, kQuarter}, {0, 0, 3, kQuarter}, {}});
    animation.keyPath = KeyPath::rotation;
    stage.node->addAnimation(animation, "rotation");
    const auto turned = [&](const glm::vec3& v) {
        return glm::vec3(stage.node->worldTransform() * glm::vec4(v, 0));
    };
    stage.apply({0, 1});
    expectNear(turned({1, 0, 0}), {0, 0, -1});
    stage.apply({2});
    expectNear(turned({1, 0, 0}), {0, 1, 0});
    stage.apply({3});
    expectNear(turned({1, 0, 0}), {std::sqrt(0.5f), std::sqrt(0.5f), 0});
    expectNear(glm::vec3(stage.node->rotation()), glm::vec3(0));
}

TEST(Keyframes, MakeWayUnderTheirKey) {
    Stage stage;
    const auto first = journey(Values(4, {10, 0, 0, 0}));
    auto second = journey(Values(4, {0, 6, 0, 0}));
    second.fadeInDuration = 1;
    stage.node->addAnimation(first, "key");
    stage.apply({0});
    stage.node->addAnimation(second, "key");
    EXPECT_THAT(stage.node->animationKeys(), ElementsAre("key"));
    stage.apply({0.5, 1}); // the second began at 0.5; the first has 0.5 s left of its blend
    expectNear(drawnPlace(*stage.node), {0, 3, 0});
    stage.apply({2});
    expectNear(drawnPlace(*stage.node), {0, 6, 0});
    stage.node->removeAnimationForKey("key", 1);
    EXPECT_THAT(stage.node->animationKeys(), IsEmpty());
    stage.apply({2.5});
    expectNear(drawnPlace(*stage.node), {0, 3, 0});
    stage.apply({3});
    expectNear(drawnPlace(*stage.node), {0, 0, 0});
    stage.node->addAnimation(first, "key");
    stage.apply({3.1});
    stage.node->removeAnimationForKey("key", 0);
    expectNear(drawnPlace(*stage.node), {0, 0, 0});
}

} // namespace
} // namespace zelvo::scene
