// SPDX-License-Identifier: MIT
#include "catalogue/CatalogueFixture.h"

#include <gmock/gmock.h>

#include <array>
#include <cmath>

namespace zelvo::catalogue {
namespace {

using glm::vec3;
using testing::ElementsAre;
using testing::IsEmpty;

class CameraTest : public test::CatalogueTest {
protected:
    CameraTest() {
        plays = true;
        clock = 1;
    }

    /// A button of the tab in the hand: what it leaves at the press it needs at the release.
    [[nodiscard]] static Button button(std::string_view title) {
        const auto buttons = tabNamed("CAM")->buttons();
        return *std::ranges::find(buttons, title, &Button::title);
    }

    void settle() {
        world.runLoop.drain();
        beginActions();
        pressedAt = sceneTime;
    }

    void begin(const Button& held) {
        held.beganFunc(controller);
        settle();
    }

    void end(const Button& held) {
        held.endFunc(controller);
        settle();
    }

    /// The first time by hand, then the last press once more, as a later run does it.
    void pressOrReplay(std::string_view title, bool isReplay) {
        if (!isReplay) {
            press("CAM", title);
            return;
        }
        controller.removeActions(controller.currentIdentifier - 1);
        controller.markAllNotRun();
        tick(0);
        beginActions();
        tick(1);
        settle();
    }

    scene::SCNNode& special = *nodes.cameraSpecialPerspectiveNode;
    scene::SCNNode& wiggle = *nodes.cameraWiggle;
};

TEST_F(CameraTest, ZoomsInWhileHeldAndGlidesBack) {
    const Button zoom = button("Zoom Cam");
    const auto back = test::bezier(0.44, 0.66, 0.22, 0.99);
    for (const double base : {0.85, 2.55}) {
        factor = base;
        begin(zoom);
        for (const float share : {0.0f, 0.25f, 0.5f, 1.0f}) {
            goTo(share * 0.15 * base);
            expectAt(special, vec3(0, 2, -105) * share);
        }
        goTo(1);
        end(zoom);
        for (const double share : {0.0, 0.25, 0.5, 1.0}) {
            goTo(share * 0.3 * base);
            expectAt(special, vec3(0, 2, -105) * static_cast<float>(1 - back(share)));
        }
    }
    EXPECT_THAT(recordedTitles(), ElementsAre("Zoom Cam", "", "Zoom Cam", ""));
    controller.undo();
    EXPECT_THAT(recordedTitles(), ElementsAre("Zoom Cam", "")) << "a press goes with its release";

    begin(zoom);
    goTo(1);
    end(zoom);
    goTo(0.1);
    const vec3 onTheWay = special.position;
    begin(zoom); // ends the return and starts from there
    goTo(0.5 * 0.15 * factor);
    expectAt(special, (onTheWay + vec3(0, 2, -105)) / 2.0f);
}

TEST_F(CameraTest, CutsToAnotherViewAndBack) {
    struct Row {
        const char* title;
        float a, x;
    };

    for (const auto& [title, a, x] : std::to_array<Row>({
             {"Half Left Cam",  -30, 24 },
             {"Half Right Cam", 30,  -24},
    })) {
        const Button half = button(title);
        begin(half);
        expectAt(special, {x, 18, -82});
        expectTurned(special, {20, a, 0}, 0.01f);
        end(half);
        expectAt(special, vec3(0));
        expectTurned(special, vec3(0), 0.01f);
    }
}

TEST_F(CameraTest, ShakesTheSameWayInEachReplay) {
    const scene::SCNNode& camera = *nodes.cameraNode;
    for (const double base : {0.85, 0.425}) {
        factor = base;
        std::array<vec3, 2> leaps{};
        for (vec3& leap : leaps) {
            pressOrReplay("Shake Cam", &leap != leaps.begin());
            expectAt(camera, {0, 0, 345});
            goTo(0.02 * base);
            leap = camera.position.value() - vec3(0, 0, 345);
            EXPECT_NEAR(leap.z, -67, 0.01);
            for (const float side : {leap.x, leap.y})
                EXPECT_TRUE(std::abs(side - std::round(side)) < 1e-3f && side > -1 && side < 12);
            goTo((0.02 + 0.58 / 2) * base); // sin 45 deg of the way back
            expectAt(camera, vec3(0, 0, 345) + leap * (1 - std::sqrt(0.5f)));
            goTo(0.6 * base);
            expectAt(camera, {0, 0, 345});
        }
        EXPECT_LT(glm::distance(leaps[0], leaps[1]), 1e-3f);
    }
}

TEST_F(CameraTest, QuakesWithinItsWidthForSecondsOfItsOwnAndTheSameInEachReplay) {
    for (const double base : {0.2125, 2.55}) {
        SCOPED_TRACE(base);
        factor = base;
        const auto width = static_cast<float>(0.018 * base * 10);
        std::array<std::vector<vec3>, 2> ways;
        for (auto& way : ways) {
            pressOrReplay("Quake Cam", &way != ways.begin());
            // The first of the eleven places is there at once: a whole number above the least.
            const vec3 first = wiggle.position.value() + vec3(54, 50, 50) * width;
            for (int axis = 0; axis < 3; ++axis)
                EXPECT_NEAR(first[axis], std::round(first[axis]), 1e-3);
            float farthest = 0;
            for (int frame = 0; frame < 324; ++frame) {
                goTo(frame * kFrame);
                way.push_back(wiggle.position);
                farthest = std::max(farthest, glm::length(way.back()));
            }
            EXPECT_LT(farthest, 1.8f * 54 * width);
            EXPECT_GT(farthest, 0.2f * 54 * width);
            EXPECT_TRUE(wiggle.hasActions());
            goTo(5.5);
            EXPECT_FALSE(wiggle.hasActions());
            expectAt(wiggle, vec3(0));
        }
        EXPECT_EQ(ways[0], ways[1]);
    }
}

TEST_F(CameraTest, FliesThroughTurbulenceThatEachReplayDrawsAnew) {
    std::array<std::vector<vec3>, 2> ways;
    for (auto& way : ways) {
        pressOrReplay("Turbulence Cam", &way != ways.begin());
        EXPECT_THAT(wiggle.animationKeys(), ElementsAre("position", "rotation"));
        EXPECT_EQ(wiggle.presentedPosition(), vec3(0));
        vec3 least(0), most(0);
        float widest = 0;
        for (int frame = 0; frame < 240; ++frame) {
            goTo(frame * kFrame);
            way.push_back(wiggle.presentedPosition());
            least = glm::min(least, way.back());
            most = glm::max(most, way.back());
            widest = std::max(widest, glm::degrees(glm::angle(wiggle.presentedOrientation())));
        }
        // Values of 0 to 11 less 6, less 6, less 2.4; the angle of 0 to 7 less 4 degrees.
        EXPECT_TRUE(glm::all(glm::greaterThan(least, vec3(-6.01f, -6.01f, -2.41f))));
        EXPECT_TRUE(glm::all(glm::lessThan(most, vec3(5.01f, 5.01f, 8.61f))));
        EXPECT_GT(glm::length(most - least), 5);
        EXPECT_GT(widest, 1);
        EXPECT_LT(widest, 4.01f);
        EXPECT_EQ(wiggle.position.value(), vec3(0));
        goTo(4);
        EXPECT_THAT(wiggle.animationKeys(), IsEmpty());
        EXPECT_EQ(wiggle.presentedPosition(), vec3(0));
    }
    EXPECT_NE(ways[0], ways[1]);
    press("CAM", "Turbulence Cam");
    controller.resetAll(actions::CameraHandles::include);
    EXPECT_THAT(wiggle.animationKeys(), IsEmpty()) << "a new run begins in still air";
}

} // namespace
} // namespace zelvo::catalogue
