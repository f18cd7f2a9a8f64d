// SPDX-License-Identifier: MIT
#include "HintScript.h"

#include <gtest/gtest.h>

namespace zelvo::test {

namespace {

using hint::Act;
using hint::HintScript;
using hint::Moment;
using hint::Target;

app::Performance twoPresses() {
    app::Performance performance;
    performance.duration = 5;
    performance.cues = {
        {0.8, app::Press{"IN", "Flip", {}, {}, {}}}, {2.1, app::Press{"IN", "Fade", {}, {}, {}}}};
    return performance;
}

TEST(HintScript, TheHandIsOnTheButtonWhenTheStageShowsItsCue) {
    const HintScript script(twoPresses(), {"Fade", "Copter", "Flip"});
    int presses = 0;
    double before = 0;
    for (int i = 0; i < 100 * script.length(); ++i) {
        const double t = 0.01 * i;
        const Moment now = script.at(t);
        if (now.press > before && now.from.button != Target::kRecord) {
            const double cue = presses == 0 ? 0.8 : 2.1;
            EXPECT_EQ(now.from, (Target{presses == 0 ? 2 : 0}));
            EXPECT_NEAR(now.stageTime, cue, 0.011);
            const Moment just = script.at(t - 0.02);
            EXPECT_EQ(just.to, now.from);
            EXPECT_DOUBLE_EQ(just.way, 1) << "the hand comes too late";
            ++presses;
        }
        before = now.press;
    }
    EXPECT_EQ(presses, 2);
}

TEST(HintScript, TheHandNeverJumpsAndTheClockNeverRunsBack) {
    const HintScript script(twoPresses(), {"Fade", "Copter", "Flip"});
    Moment before = script.at(0);
    EXPECT_EQ(before.act, Act::pressRecord);
    for (int i = 1; i < 100 * script.length(); ++i) {
        const double t = 0.01 * i;
        const Moment now = script.at(t);
        if (now.to == before.to && now.from == before.from) {
            EXPECT_GE(now.way, before.way);
            EXPECT_LT(now.way - before.way, 0.1) << t;
        } else {
            EXPECT_EQ(now.from, before.to) << t;
            EXPECT_LT(now.way, 0.05) << t;
        }
        EXPECT_GE(now.clock, before.clock);
        EXPECT_GE(now.act, before.act);
        before = now;
    }
    EXPECT_EQ(before.act, Act::pressAgain);
    EXPECT_EQ(before.run, 1);
}

} // namespace

} // namespace zelvo::test
