// SPDX-License-Identifier: MIT
#include "actions/ControllerFixture.h"
#include "actions/PanDirections.h"
#include "support/ReferenceCurves.h"

#include <gmock/gmock.h>

#include <array>
#include <cmath>
#include <functional>
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
    pinch(GestureState::began, 0.1f);
    EXPECT_EQ(identifiers().size(), 3U);
    EXPECT_EQ(controller.undoManager.undoTitle(), "Camera Pinch");
    controller.undo();
    EXPECT_EQ(recordedTitles().size(), 7U) << "the second pinch alone";
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
        Orientation orientation;
        bool isQuick;
    };

    // clang-format off
    for (const Row& row : std::to_array<Row>({
             {{999, 1001},   Direction::topToBottom, Orientation::topToBottom, true },
             {{10, -1001},   Direction::bottomToTop, Orientation::bottomToTop, true },
             {{1001, 1000},  Direction::leftToRight, Orientation::leftToRight, true },
             {{-2000, -900}, Direction::rightToLeft, Orientation::rightToLeft, true },
             {{-5, 5},       Direction::rightToLeft, Orientation::rightToLeft, false},
             {{1000, 0},     Direction::leftToRight, Orientation::leftToRight, false},
             {{0, 2000},     Direction::topToBottom, Orientation::bottomToTop, false},
    })) {
        // clang-format on
        EXPECT_EQ(direction(row.velocity), row.direction);
        EXPECT_EQ(isQuickSwipe(row.velocity, row.orientation), row.isQuick);
    }
}

TEST_F(GesturesTest, AreReplayedExactly) {
    plays = true;
    /// Where the camera is, frame by frame.
    const auto watch = [&](const std::function<void(int frame)>& act) {
        std::vector<glm::vec3> seen;
        const double start = sceneTime;
        for (int frame = 0; frame < 60; ++frame) {
            clock = 2 + frame * kFrame;
            act(frame);
            world.runLoop.drain();
            animateTo(start + frame * kFrame);
            seen.emplace_back(yaw(), pitch(), pushed());
        }
        return seen;
    };
    const auto live = watch([&](int frame) {
        if (frame > 30)
            return;
        const auto at = static_cast<float>(frame);
        const auto moving = frame == 0 ? GestureState::began : GestureState::changed;
        const auto state = frame == 30 ? GestureState::ended : moving;
        controller.gestures.pan(state, {at * at / 10, at});
        controller.gestures.pinch(state, at / 30);
        factor = 0.4; // is read at the release
    });
    factor = 2;
    controller.resetAll(CameraHandles::include);
    animateTo(sceneTime + 1);
    sceneTime += 1;
    controller.markAllNotRun();
    const auto again = watch([&](int) { controller.run(clock); });
    EXPECT_LT(live[30].z, -10) << "nothing has moved";
    for (std::size_t i = 0; i < live.size(); ++i)
        EXPECT_LT(glm::distance(again[i], live[i]), 1e-4f) << i;
}

} // namespace
} // namespace zelvo::actions
