// SPDX-License-Identifier: MIT
#include "ui/main/SceneRecognizers.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zelvo::ui {

namespace {

/// Notes each recognised gesture as words.
class Notes final : public GestureDelegate {
public:
    std::string text;
    PinchGesture lastPinch;
    float velocities = 0; ///< sum

    void handlePinch(const PinchGesture& pinch) override {
        text += "pinch " + name(pinch.state);
        lastPinch = pinch;
        velocities += pinch.velocity;
    }

    void handlePan(const PanGesture& pan) override { text += "pan " + name(pan.state); }

    void handleTap(const TapGesture&) override { text += "tap "; }

    void handleDoubleTap(const TapGesture&) override { text += "double "; }

private:
    static std::string name(actions::GestureState state) {
        constexpr const char* kNames[] = {"began ", "changed ", "ended ", "cancelled "};
        return kNames[static_cast<int>(state)];
    }
};

struct Step {
    enum Kind { press, move, release, wait, cancel } kind;

    int finger = 0;
    float x = 0;
};

void take(const Step& step, SceneRecognizers& recognizers, foundation::VirtualRunLoop& loop) {
    const glm::vec2 place(step.x, 0);
    switch (step.kind) {
    case Step::press:
        return recognizers.press(step.finger, place);
    case Step::move:
        return recognizers.move(step.finger, place);
    case Step::release:
        return recognizers.release(step.finger, place);
    case Step::wait:
        return loop.runFor(1);
    case Step::cancel:
        return recognizers.cancel();
    }
}

TEST(Recognizers, tell_pans_pinches_and_taps_apart) {
    using enum Step::Kind;

    struct Row {
        std::vector<Step> steps;
        const char* recognised;
    };

    // clang-format off
    const Row rows[] = {
        {{{press, 1, 0}, {move, 1, 4}, {release, 1, 4}},                                    "tap "                        },
        {{{press, 1, 0}, {release, 1, 0}, {press, 1, 5}, {release, 1, 5}},                  "tap tap double "             },
        {{{press, 1, 0}, {release, 1, 0}, {wait}, {press, 1, 0}, {release, 1, 0}},          "tap tap "                    },
        {{{press, 1, 0}, {release, 1, 0}, {press, 1, 90}, {release, 1, 90}},                "tap tap "                    },
        {{{press, 1, 0}, {move, 1, 20}, {move, 1, 30}, {release, 1, 30}},
         "pan began pan changed pan ended "                                                                               },
        {{{press, 1, 0}, {move, 1, 20}, {cancel}},                                          "pan began pan cancelled "    },
        {{{press, 1, 0}, {press, 2, 50}, {move, 2, 60}, {release, 1, 0}, {release, 2, 60}},
         "pinch began pinch changed pinch ended "                                                                         },
        {{{press, 1, 0}, {move, 1, 20}, {press, 2, 50}, {release, 2, 50}, {move, 1, 80}},
         "pan began pan ended pinch began pinch ended "                                                                   },
        {{{press, 1, 0}, {press, 2, 50}, {cancel}, {move, 2, 60}},                          "pinch began pinch cancelled "},
        {{{press, 1, 0}, {press, 2, 50}, {press, 3, 70}, {move, 3, 90}, {release, 3, 90}},
         "pinch began "                                                                                                   },
    };
    // clang-format on
    for (const Row& row : rows) {
        foundation::VirtualRunLoop loop;
        Notes notes;
        SceneRecognizers recognizers(loop, notes);
        for (const Step& step : row.steps)
            take(step, recognizers, loop);
        EXPECT_EQ(notes.text, row.recognised);
    }
}

TEST(Recognizers, measure_how_fast_two_fingers_part) {
    foundation::VirtualRunLoop loop;
    Notes notes;
    SceneRecognizers recognizers(loop, notes);
    recognizers.press(1, {0, 0});
    recognizers.press(2, {100, 0});
    loop.runFor(0.1);
    recognizers.move(2, {150, 0});
    EXPECT_NEAR(notes.lastPinch.scale, 1.5, 1e-5);
    EXPECT_NEAR(notes.lastPinch.velocity, 5, 1e-3);
}

TEST(Recognizers, end_the_pinch_of_a_wheel_when_it_rests) {
    foundation::VirtualRunLoop loop;
    Notes notes;
    SceneRecognizers recognizers(loop, notes);
    recognizers.turnWheel(15, {0, 0});
    loop.runFor(0.1);
    recognizers.cancel(); // as the release of a mouse button does
    recognizers.turnWheel(-15, {0, 0});
    EXPECT_NEAR(notes.lastPinch.scale, 1, 1e-5);
    loop.runFor(1);
    EXPECT_EQ(notes.text, "pinch began pinch changed pinch changed pinch ended ");
}

/// How far a turn of the wheel pushes the camera: ten units for each velocity of the pinch.
float pushOf(int notches, double between) {
    foundation::VirtualRunLoop loop;
    Notes notes;
    SceneRecognizers recognizers(loop, notes);
    for (int i = 0; i < notches; ++i) {
        recognizers.turnWheel(15, {0, 0});
        loop.runFor(between);
    }
    return 10 * notes.velocities;
}

TEST(Recognizers, push_the_camera_by_gentle_notches_and_never_through_the_title) {
    constexpr float kCameraDistance = 345;
    EXPECT_GT(pushOf(1, 0), 3);
    EXPECT_LT(pushOf(1, 0), 0.05f * kCameraDistance);
    EXPECT_GT(pushOf(6, 0.02), 2 * pushOf(6, 0.18)) << "a fast turn is no larger than a slow one";
    EXPECT_LT(pushOf(6, 0.002), 0.6f * kCameraDistance);
    EXPECT_LT(pushOf(60, 0.002), 0.9f * kCameraDistance);
}

} // namespace

} // namespace zelvo::ui
