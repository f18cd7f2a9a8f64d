// SPDX-License-Identifier: MIT
#include "actions/ControllerFixture.h"
#include "actions/PanDirections.h"
#include "support/ReferenceCurves.h"

#include <gmock/gmock.h>

#include <array>
#include <cmath>
#include <limits>
#include <set>

namespace zelvo::actions {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class GesturesTest : public test::ControllerTest {
protected:
    void pan(GestureState state, const glm::vec2& location) {
        controller.gestures.pan(state, location);
        settle();
    }

    void pinch(GestureState state, float velocity) {
        controller.gestures.pinch(state, velocity);
        settle();
    }

    void settle() {
        world.runLoop.drain();
        beginActions();
        begunAt = sceneTime;
    }

    void goOn(double seconds) { animateTo(begunAt + seconds); }

    /// The rotation about the handle's axis in radians, whatever the Euler angles are.
    [[nodiscard]] float yaw() const {
        const glm::vec3 ahead(nodes.cameraYHandle->worldTransform()[2]);
        return std::atan2(ahead.x, ahead.z);
    }

    [[nodiscard]] float pitch() const { return nodes.cameraXHandle->eulerAngles().x; }

    [[nodiscard]] float pushed() const { return nodes.cameraPinchNode->position.value().z; }

    [[nodiscard]] std::set<int> identifiers() const {
        std::set<int> all;
        for (const XACPtr& xac : controller.recordedActions())
            all.insert(xac->identifier);
        return all;
    }

    double begunAt = 0;
    const test::Reference glide = test::bezier(0.1, 0.7, 0.5, 0.98);
};

TEST_F(GesturesTest, TurnTheCameraWithThePanAndLetItDriftBack) {
    for (const double base : {0.85, 2.55}) {
        factor = base;
        pan(GestureState::began, {640, 360});
        pan(GestureState::changed, {650, 355});
        for (const double share : {0.25, 0.5, 1.0}) {
            goOn(share * 0.4);
            EXPECT_NEAR(yaw(), -0.3 * glide(share), 1e-3);
            EXPECT_NEAR(pitch(), 0.1 * glide(share), 1e-3);
        }
        pan(GestureState::changed, {650, 365});
        goOn(0.1);
        pan(GestureState::changed, {660, 365}); // adds to the rotation that still runs
        goOn(0.4);
        EXPECT_NEAR(yaw(), -0.6, 1e-3);
        EXPECT_NEAR(pitch(), -0.1, 1e-3);
        pan(base < 1 ? GestureState::ended : GestureState::cancelled, {660, 365});
        for (const double share : {0.25, 0.5, 1.0}) {
            goOn(share * 0.8 * base);
            EXPECT_NEAR(yaw(), -0.6 * (1 - glide(share)), 1e-3);
            EXPECT_NEAR(pitch(), -0.1 * (1 - glide(share)), 1e-3);
        }
    }
    EXPECT_THAT(recordedTitles(), IsEmpty()) << "nothing runs";
}

TEST_F(GesturesTest, GoOnInTheirDirectionFromBeyondAQuarterTurn) {
    pan(GestureState::began, {0, 0});
    pan(GestureState::changed, {80, 0}); // -2.4
    goOn(0.4);
    pan(GestureState::ended, {80, 0});
    goOn(0.02);
    pan(GestureState::began, {0, 0}); // stops the return where the angles are ambiguous
    const float stopped = yaw();
    EXPECT_LT(stopped, -1.8f);
    pan(GestureState::changed, {-10, 0});
    goOn(0.4);
    EXPECT_NEAR(yaw(), stopped + 0.3f, 1e-3);
}

TEST_F(GesturesTest, StraightenAHandleThatIsNoRotationAnyMore) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    nodes.cameraYHandle->setOrientation({nan, 0, nan, 0});
    testing::internal::CaptureStderr();
    pan(GestureState::began, {0, 0});
    pan(GestureState::changed, {10, 0});
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "camYHandleRotW.isNaN\n");
    goOn(0.4);
    EXPECT_NEAR(yaw(), -0.3, 1e-3);
}

TEST_F(GesturesTest, PushTheCameraInAsFastAsTheFingersAndLetItSpringBack) {
    pinch(GestureState::began, 0.15f); // 1.5 units
    EXPECT_EQ(pushed(), 0);
    goOn(0.05);
    EXPECT_NEAR(pushed(), -1.5 * test::bezier(0, 0, 0.58, 1)(0.5), 1e-2);
    goOn(0.1);
    EXPECT_NEAR(pushed(), -1.5, 1e-4);
    pinch(GestureState::changed, -0.3f);
    goOn(0.1);
    EXPECT_NEAR(pushed(), 1.5, 1e-4);
    pinch(GestureState::ended, 7);
    goOn(0.5 * 0.8 * 0.85);
    EXPECT_NEAR(pushed(), 1.5 * (1 - glide(0.5)), 1e-3);
    goOn(0.8 * 0.85);
    EXPECT_NEAR(pushed(), 0, 1e-4);

    testing::internal::CaptureStderr();
    pinch(GestureState::began, std::numeric_limits<float>::quiet_NaN());
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "isNan\n");
    goOn(0.1);
    EXPECT_NEAR(pushed(), -1, 1e-4);
    pinch(GestureState::cancelled, 0.15f); // one more step, no release
    goOn(5);
    EXPECT_NEAR(pushed(), -2.5, 1e-4);
}

TEST_F(GesturesTest, BringTheStageHomeWithAnOvershootAndLeaveTheHandles) {
    plays = true;
    nodes.mediaNode->position = glm::vec3(100, 0, 0);
    nodes.cameraPinchNode->position = glm::vec3(0, 0, -100);
    nodes.cameraYHandle->setEulerAngles({0, 0.5f, 0});
    controller.gestures.tap();
    controller.gestures.doubleTap();
    settle();
    goOn(0.25); // 1 + 2^-5 of the way
    EXPECT_NEAR(nodes.mediaNode->position.value().x, -100.0 / 32, 1e-2);
    EXPECT_NEAR(pushed(), 100.0 / 32, 1e-2);
    goOn(0.5);
    EXPECT_NEAR(pushed(), 0, 1e-4);
    EXPECT_NEAR(yaw(), 0.5, 1e-4);
    EXPECT_THAT(recordedTitles(), ElementsAre("Center"));
}

TEST_F(GesturesTest, AreUndoneWholeAndRedoneByTheirFirstRecord) {
    plays = true;
    pan(GestureState::began, {0, 0});
    pan(GestureState::changed, {5, 0});
    pan(GestureState::changed, {9, 0});
    pan(GestureState::ended, {9, 0});
    EXPECT_THAT(recordedTitles(), ElementsAre("Camera Move", "", "", ""));
    EXPECT_EQ(identifiers().size(), 1U);
    pinch(GestureState::began, 0.1f);
    pinch(GestureState::changed, 0.1f);
    pinch(GestureState::ended, 0);
    EXPECT_EQ(identifiers().size(), 2U);
    EXPECT_EQ(controller.undoManager.undoTitle(), "Camera Pinch");
    controller.undo();
    EXPECT_THAT(recordedTitles(), ElementsAre("Camera Move", "", "", ""));
    controller.undo();
    EXPECT_THAT(recordedTitles(), IsEmpty());
    EXPECT_FALSE(controller.undoManager.canUndo());
    controller.redo();
    EXPECT_THAT(recordedTitles(), ElementsAre("Camera Move"));
    controller.redo();
    EXPECT_THAT(recordedTitles(), ElementsAre("Camera Move", "Camera Pinch"));
}

TEST(PanDirections, FollowTheFasterAxis) {
    using Direction = UIPanGestureRecognizerDirection;
    using Orientation = TransitionOrientation;

    struct Row {
        glm::vec2 velocity;
        Direction direction;
        Orientation swipe; ///< unknown: not a quick one
    };

    // clang-format off
    for (const Row& row : std::to_array<Row>({
             {{10, 20},      Direction::topToBottom, Orientation::unknown    },
             {{10, -1001},   Direction::bottomToTop, Orientation::bottomToTop},
             {{-999, 1001},  Direction::topToBottom, Orientation::topToBottom},
             {{1001, 1000},  Direction::leftToRight, Orientation::leftToRight},
             {{-2000, -900}, Direction::rightToLeft, Orientation::rightToLeft},
             {{-5, 5},       Direction::rightToLeft, Orientation::unknown    },
             {{1000, 0},     Direction::leftToRight, Orientation::unknown    },
    })) {
        // clang-format on
        EXPECT_EQ(direction(row.velocity), row.direction);
        for (const auto orientation :
             {Orientation::unknown,
              Orientation::topToBottom,
              Orientation::bottomToTop,
              Orientation::leftToRight,
              Orientation::rightToLeft}) {
            const bool isTheOne = row.swipe != Orientation::unknown && row.swipe == orientation;
            EXPECT_EQ(isQuickSwipe(row.velocity, orientation), isTheOne);
        }
    }
}

TEST_F(GesturesTest, AreReplayedExactly) {
    plays = true;
    const auto play = [&](const auto& touch) {
        std::vector<glm::vec3> seen;
        const double start = sceneTime;
        for (int frame = 0; frame < 60; ++frame) {
            clock = 2 + frame * kFrame;
            touch(frame);
            world.runLoop.drain();
            animateTo(start + frame * kFrame);
            seen.emplace_back(yaw(), pitch(), pushed());
        }
        return seen;
    };
    const auto live = play([&](int frame) {
        const auto at = static_cast<float>(frame);
        const bool isLast = frame == 30;
        const auto state = frame == 0 ? GestureState::began
                           : isLast   ? GestureState::ended
                                      : GestureState::changed;
        if (frame > 30)
            return;
        controller.gestures.pan(state, {at * at / 10, at});
        controller.gestures.pinch(state, at / 30);
        factor = 0.4; // is read at the release
    });
    factor = 2;
    controller.resetAll(CameraHandles::include);
    animateTo(sceneTime + 1);
    sceneTime += 1;
    controller.markAllNotRun();
    const auto again = play([&](int) { controller.run(clock); });
    ASSERT_EQ(again.size(), live.size());
    float farthest = 0;
    for (std::size_t i = 0; i < live.size(); ++i) {
        EXPECT_LT(glm::length(again[i] - live[i]), 1e-4f) << i;
        farthest = std::max(farthest, glm::length(live[i]));
    }
    EXPECT_GT(farthest, 10);
}

} // namespace
} // namespace zelvo::actions
