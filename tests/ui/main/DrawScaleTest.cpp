// SPDX-License-Identifier: MIT
#include "ui/main/DrawScale.h"

#include <gtest/gtest.h>

#include <vector>

namespace zelvo::ui {

namespace {

/// The scale after many frames on a machine that needs so many seconds a frame at scale 1.
double settle(DrawScale& scale, double atWhole) {
    for (int i = 0; i < 2000; ++i)
        scale.frameTook(atWhole * scale.value() * scale.value());
    return scale.value();
}

TEST(DrawScale, gives_up_sharpness_for_time_and_takes_it_back) {
    DrawScale scale;
    EXPECT_EQ(settle(scale, 0.2), DrawScale::kMin);
    const double middle = settle(scale, 0.04);
    EXPECT_LT(0.04 * middle * middle, 1.0 / 30);
    EXPECT_GT(middle, 0.6);
    EXPECT_EQ(settle(scale, 0.002), DrawScale::kMax);
    DrawScale waiting;
    for (int i = 0; i < 120; ++i)
        waiting.frameTook(0.002);
    EXPECT_LT(waiting.value(), 1.2) << "one step, then it waits to see what the step has cost";
}

TEST(DrawScale, takes_one_standstill_for_no_drawing_but_not_many) {
    DrawScale scale;
    for (int i = 0; i < 100; ++i) {
        scale.frameTook(3);
        scale.frameTook(0.02);
    }
    EXPECT_EQ(scale.value(), DrawScale::kStart);
    EXPECT_EQ(settle(scale, 2), DrawScale::kMin);
}

TEST(DrawScale, draws_what_stands_still_finer_until_it_moves) {
    DrawScale scale;
    for (int i = 0; i < DrawScale::kBeforeRest; ++i) {
        scale.nextShows(7);
        EXPECT_EQ(scale.value(), DrawScale::kStart);
    }
    scale.nextShows(7);
    EXPECT_EQ(scale.value(), 2 * DrawScale::kStart);
    EXPECT_FALSE(scale.isDrawn());
    for (int i = 0; i < 1000; ++i) {
        scale.frameTook(i == 0 ? 0.2 : 0.0001); // does not tell how long a moving picture takes
        scale.nextShows(7);
        EXPECT_TRUE(scale.isDrawn());
    }
    scale.nextShows(8);
    EXPECT_EQ(scale.value(), DrawScale::kStart);
    EXPECT_FALSE(scale.isDrawn());
    for (int i = 0; i < 100; ++i)
        scale.nextShows(std::nullopt);
    EXPECT_EQ(scale.value(), DrawScale::kStart) << "without a key, the picture may have changed";
}

TEST(DrawScale, comes_to_the_finest_in_two_steps_where_drawing_takes_long) {
    DrawScale scale;
    settle(scale, 0.2);
    std::vector<double> drawn;
    for (int i = 0; i < 1000; ++i) {
        scale.nextShows(7);
        if (i >= DrawScale::kBeforeRest && !scale.isDrawn())
            drawn.push_back(scale.value() / DrawScale::kMin);
    }
    EXPECT_EQ(drawn, (std::vector<double>{2, 3}));
}

} // namespace

} // namespace zelvo::ui
