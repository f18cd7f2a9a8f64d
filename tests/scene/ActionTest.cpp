// SPDX-License-Identifier: MIT
#include "SceneSupport.h"

#include <fmt/format.h>
#include <glm/gtc/constants.hpp>

#include <string>
#include <utility>

namespace zelvo::scene {
namespace {

constexpr float kPi = glm::pi<float>();

float square(float t) {
    return t * t;
}

float thereAndBack(float t) {
    return t < 0.5f ? 2 * t : 2 - 2 * t;
}

SCNActionPtr moveToX(float x, double duration, TimingFunction timing = {}) {
    return SCNAction::moveTo({x, 0, 0}, duration, std::move(timing));
}

SCNActionPtr moveByX(float x, double duration) {
    return SCNAction::moveBy({x, 0, 0}, duration);
}

struct Sample {
    double time;
    float x;
};

/// Starts the actions on a node at x = 10, before the first sample. Each sample is one frame.
void expectMotion(
    const std::string& what,
    const std::vector<SCNActionPtr>& actions,
    const std::vector<Sample>& samples) {
    SCOPED_TRACE(what);
    Stage stage;
    stage.node->position = glm::vec3(10, 0, 0);
    for (const SCNActionPtr& action : actions) {
        stage.node->runAction(action);
    }
    for (const Sample& sample : samples) {
        stage.scene.applyAnimations(sample.time);
        EXPECT_NEAR(stage.node->position.value().x, sample.x, 1e-4f) << "at " << sample.time;
    }
}

SCNActionPtr seq(std::vector<SCNActionPtr> steps, TimingFunction timing = {}) {
    return SCNAction::sequence(std::move(steps), std::move(timing));
}

SCNActionPtr group(std::vector<SCNActionPtr> members, TimingFunction timing = {}) {
    return SCNAction::group(std::move(members), std::move(timing));
}

// One row for each case.
// clang-format off

TEST(Action, MovesByItsTimeAndBend) {
    const auto overshoot = [](float t) { return 1.5f * t; };
    expectMotion("linear", {moveToX(20, 1)}, {{3, 10}, {3.25, 12.5f}, {3.5, 15}, {4, 20}, {9, 20}});
    expectMotion("bent", {moveToX(20, 1, square)}, {{0, 10}, {0.5, 12.5f}, {1, 20}});
    expectMotion("bent beyond its end", {moveToX(20, 1, overshoot)}, {{0, 10}, {0.8, 22}, {1, 25}});
}

TEST(Action, PassesOverTheStepsOfASequence) {
    expectMotion("from, pause, to", {seq({moveToX(5, 0), SCNAction::wait(0.5), moveToX(15, 1)})},
                 {{0, 5}, {0.25, 5}, {0.75, 7.5f}, {1.5, 15}});
    expectMotion("the rest of a frame goes to the next step",
                 {seq({moveToX(20, 0.5), moveToX(0, 0.5)})}, {{0, 10}, {0.9, 4}});
    expectMotion("many steps in one frame",
                 {seq({moveToX(1, 0.1), moveByX(2, 0.1), moveToX(7, 0), moveByX(4, 1)})},
                 {{0, 10}, {0.7, 9}});
    expectMotion("nested ones pass rests on",
                 {seq({seq({moveToX(20, 0.25), SCNAction::wait(0.25)}), seq({moveToX(30, 1)})})},
                 {{0, 10}, {1, 25}});
    expectMotion("nothing at all", {seq({}), group({}), seq({group({})})}, {{0, 10}, {1, 10}});
}

TEST(Action, BendsTheWholeOfASequence) {
    const auto doubled = [](float t) { return 2 * t; };
    expectMotion("slow start", {seq({moveToX(20, 1), moveToX(40, 1)}, square)},
                 {{0, 10}, {1, 15}, {1.5, 22.5f}, {2, 40}});
    expectMotion("there and back, done at the end",
                 {seq({moveToX(20, 1), moveToX(40, 1)}, thereAndBack)},
                 {{0, 10}, {1, 40}, {1.25, 30}, {1.75, 15}, {2, 40}});
    expectMotion("relative steps gone back over",
                 {seq({moveByX(10, 1), moveByX(20, 1)}, thereAndBack)},
                 {{0, 10}, {1, 40}, {1.75, 15}, {2, 40}});
    expectMotion("past 1 it waits at its end", {seq({moveToX(20, 2)}, doubled)},
                 {{0, 10}, {0.5, 15}, {1.5, 20}});
}

TEST(Action, CombinesWithOthersOnOneProperty) {
    expectMotion("the short member ends, the long one goes on",
                 {group({moveByX(10, 1), moveByX(20, 2)})},
                 {{0, 10}, {0.5, 20}, {1.5, 35}, {2, 40}});
    expectMotion("bent group", {group({moveToX(20, 2)}, square)}, {{0, 10}, {1, 12.5f}, {2, 20}});
    expectMotion("of two absolute moves the later stands", {moveToX(20, 1), moveToX(0, 2)},
                 {{0, 10}, {1, 5}, {2, 0}});
    expectMotion("an ended step leaves the property alone",
                 {moveToX(0, 2), seq({moveToX(50, 0), SCNAction::wait(5)})}, {{0, 50}, {1, 5}});
    expectMotion("an ended member too",
                 {moveToX(0, 2), group({moveToX(50, 0), SCNAction::wait(5)})}, {{0, 50}, {1, 5}});
    expectMotion("relative adds to absolute, whichever came first",
                 {moveByX(8, 2), moveToX(20, 1), moveByX(2, 1)},
                 {{0, 10}, {0.5, 18}, {1, 26}, {2, 30}});
}

// clang-format on

/// The frames (1/60 s) in which a wait ends and, after an equal wait, the next one.
std::pair<int, int> framesOfTwoWaits(double duration, double start) {
    Stage stage;
    std::pair<int, int> frames{-1, -1};
    int frame = 0;
    const SCNActionPtr wait = SCNAction::wait(duration);
    const auto note = SCNAction::run([&](SCNNode&) { frames.first = frame; });
    stage.node->runAction(seq({wait, note, wait}), [&] { frames.second = frame; });
    for (; stage.node->hasActions(); ++frame) {
        stage.scene.applyAnimations(start + frame / 60.0);
    }
    return frames;
}

TEST(Action, EndsOnTheFrameItsDurationNames) {
    // Sixtieths have no exact binary form; still the frame must not depend on the start time.
    for (const double start : {0.0, 1.0 / 3.0, 1234.5}) {
        EXPECT_EQ(framesOfTwoWaits(0.1, start), std::pair(6, 12));
        EXPECT_EQ(framesOfTwoWaits(0.35, start), std::pair(21, 42));
        EXPECT_EQ(framesOfTwoWaits(0.85, start), std::pair(51, 102));
        EXPECT_EQ(framesOfTwoWaits(1.7, start), std::pair(102, 204));
    }
}

TEST(Action, RotatesEachAngleAsFarAsItIsTold) {
    Stage stage;
    stage.node->setEulerAngles({0, 0, 0.5f});
    stage.node->runAction(SCNAction::rotateTo({0, 4 * kPi, 0}, 4));
    stage.apply({0, 1});
    expectNear(stage.node->eulerAngles(), {0, kPi, 0.375f});
    stage.apply({3});
    expectNear(stage.node->eulerAngles(), {0, 3 * kPi, 0.125f});
    stage.apply({4});
    expectNear(stage.node->eulerAngles(), {0, 4 * kPi, 0});
    expectNear(stage.node->orientation() * glm::vec3(1, 2, 3), {1, 2, 3});
}

TEST(Action, RotatesTheShortWayRound) {
    const float angle = glm::radians(170.0f);

    struct Row {
        UnitArc arc;
        // of the rotation about y: 180 degrees by the short way, 0 by the long one
        float cosHalfway;
    };

    for (const Row row : {Row{UnitArc::shortest, -1}, {UnitArc::asGiven, 1}}) {
        Stage stage;
        stage.node->setEulerAngles({0, angle, 0});
        stage.node->runAction(SCNAction::rotateTo({0, -angle, 0}, 1, {}, row.arc));
        stage.apply({0, 0.5});
        expectNear(stage.node->orientation() * glm::vec3(1, 0, 0), {row.cosHalfway, 0, 0});
        stage.apply({1});
        expectNear(stage.node->eulerAngles(), {0, -angle, 0});
    }
}

TEST(Action, AddsTurnsToRunningOnes) {
    for (const UnitArc arc : {UnitArc::asGiven, UnitArc::shortest}) {
        Stage stage;
        stage.node->runAction(SCNAction::rotateTo({0, 0, 1}, 1, {}, arc));
        stage.node->runAction(SCNAction::rotateBy({0, 0, -0.5f}, 2));
        stage.apply({0, 0.5});
        expectNear(stage.node->eulerAngles(), {0, 0, 0.375f});
        stage.apply({1, 2});
        expectNear(stage.node->eulerAngles(), {0, 0, 0.5f});
    }
}

TEST(Action, ScalesAndFadesFromWhatStands) {
    Stage stage;
    stage.node->scale = glm::vec3(1, 2, 3);
    stage.node->opacity = 0.5f;
    const auto overshoot = [](float t) { return t * 3; };
    stage.node->runAction(SCNAction::sequence(
        {SCNAction::group({SCNAction::scaleTo(-1, 1), SCNAction::fadeOut(1)}),
         SCNAction::fadeIn(1, overshoot)}));
    stage.apply({0, 0.5});
    expectNear(stage.node->scale, {0, 0.5f, 1});
    EXPECT_FLOAT_EQ(stage.node->opacity, 0.25f);
    stage.apply({1.25});
    expectNear(stage.node->scale, {-1, -1, -1});
    EXPECT_FLOAT_EQ(stage.node->opacity, 0.75f);
    stage.apply({1.5});
    EXPECT_FLOAT_EQ(stage.node->opacity, 1.0f); // an opacity never leaves 0 to 1
}

TEST(Action, RunsOnManyNodesAtOnce) {
    Stage stage;
    const auto other = std::make_shared<SCNNode>();
    other->position = glm::vec3(100, 0, 0);
    stage.node->addChildNode(other);
    const SCNActionPtr action = SCNAction::sequence({moveByX(2, 1), moveByX(2, 1)});
    stage.node->runAction(action);
    stage.apply({0, 0.5});
    other->runAction(action);
    stage.apply({1.0, 2.0});
    EXPECT_FLOAT_EQ(stage.node->position.value().x, 4);
    EXPECT_FLOAT_EQ(other->position.value().x, 102);
}

} // namespace
} // namespace zelvo::scene
