// SPDX-License-Identifier: MIT
#include "ui/main/Stage.h"

#include "ui/UiFixture.h"

#include <gtest/gtest.h>

namespace zelvo::ui {

namespace {

class StageTest : public test::UiTest {
protected:
    StageTest() { model.setSceneView(&stage.view); }

    ~StageTest() override { model.setSceneView(nullptr); }

    /// A display that shows each picture so many seconds after it was asked for.
    void showAfter(double seconds) {
        stage.setWindow(
            {.requestFrame =
                 [this, seconds] { loop().asyncAfter(seconds, [this] { stage.frameShown(); }); },
             .pictureKey = [this] { return picture; }});
    }

    std::optional<std::uint64_t> picture; ///< empty: every picture is different
    GestureDelegate nobody;
    Stage stage{services, nobody};
};

TEST_F(StageTest, draws_at_full_pace_in_a_run_and_at_half_of_it_else) {
    showAfter(0.005);
    loop().runFor(0.1);
    const int before = stage.framesShown();
    loop().runFor(1);
    const int resting = stage.framesShown();
    EXPECT_NEAR(resting - before, 30, 1);
    model.start();
    loop().runFor(1);
    EXPECT_NEAR(stage.framesShown() - resting, 60, 2);
}

TEST_F(StageTest, draws_nothing_while_nothing_moves_and_at_once_when_it_does) {
    showAfter(0.005);
    picture = 1;
    loop().runFor(1);
    const int finest = stage.framesShown();
    EXPECT_EQ(stage.drawScale(), 2 * DrawScale::kStart);
    loop().runFor(10);
    EXPECT_EQ(stage.framesShown(), finest);
    picture = 2;
    loop().runFor(Stage::kRestPace + 0.006);
    EXPECT_EQ(stage.framesShown(), finest + 1);
    EXPECT_EQ(stage.drawScale(), DrawScale::kStart);
    loop().runFor(1);
    stage.windowResized();
    EXPECT_FALSE(stage.isDrawn());

    model.start();
    loop().runFor(1);
    EXPECT_EQ(stage.drawScale(), DrawScale::kStart) << "in a run the picture is not drawn finer";
}

TEST_F(StageTest, lets_the_scene_go_on_in_time_however_long_frames_take_and_without_a_window) {
    loop().runFor(0.5);
    for (const double taken : {0.0, 0.005, 0.06}) {
        if (taken > 0)
            showAfter(taken);
        const double before = stage.view.scene()->time();
        loop().runFor(2);
        EXPECT_NEAR(stage.view.scene()->time() - before, 2, 0.11) << taken;
    }
}

} // namespace

} // namespace zelvo::ui
