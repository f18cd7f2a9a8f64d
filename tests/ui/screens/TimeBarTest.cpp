// SPDX-License-Identifier: MIT
#include "ui/UiFixture.h"
#include "ui/screens/ProgressView.h"

namespace zelvo::test {

namespace {

using ui::PreparingStage;
using ui::ProgressView;

using TimeBarTest = UiTest;

TEST_F(TimeBarTest, ShrinksInTheCountInAndGrowsInTheRun) {
    struct Row {
        bool isCountIn;
        double fraction;
        double fill;
    };

    ProgressView bar(services);
    for (const Row& row : {
             Row{true, 0.0, 0},
             Row{true, 0.01, 0},
             Row{true, 0.011, 0.989},
             Row{true, 0.75, 0.25},
             Row{true, 0.979, 0.021},
             Row{true, 0.98, 0},
             Row{false, 0.0, 0},
             Row{false, 0.25, 0.25},
             Row{false, 0.999, 0.999},
             Row{false, 1.0, 0},
             Row{false, 1.002, 0},
         }) {
        ui::signals().timeSignal.fire({.runFraction = row.fraction, .isCountIn = row.isCountIn});
        loop().drain();
        EXPECT_NEAR(bar.fill(), row.fill, 1e-6) << row.fraction;
        EXPECT_EQ(bar.color(), row.isCountIn ? bar.preparingColor : bar.progressColor);
    }
}

TEST_F(TimeBarTest, StandsStillDuringAnExport) {
    ProgressView bar(services);
    model.start();
    loop().runFor(3);
    EXPECT_EQ(bar.state, PreparingStage::recording);
    ASSERT_TRUE(model.startMovie());
    loop().drain();
    const double before = bar.fill();
    loop().runFor(3);
    EXPECT_TRUE(model.isRecordingMovie());
    EXPECT_EQ(bar.fill(), before);
    model.cancelMovie();
}

} // namespace

} // namespace zelvo::test
