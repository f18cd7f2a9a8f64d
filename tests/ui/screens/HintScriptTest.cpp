// SPDX-License-Identifier: MIT
#include "HintScript.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace zelvo::test {

namespace {

using hint::Act;
using hint::HintScript;
using hint::Moment;
using hint::Target;

document::Cue press(double at, const char* title) {
    document::Press press;
    press.tab = "IN";
    press.title = title;
    return {at, press};
}

document::Performance twoPresses() {
    document::Performance performance;
    performance.duration = 5;
    performance.cues = {press(0.8, "Flip"), press(2.1, "Fade")};
    return performance;
}

TEST(HintScript, TheHandMovesWithoutJumpsAndIsOnTheButtonWhenTheStageShowsItsCue) {
    const HintScript script(twoPresses(), {"Fade", "Copter", "Flip"});
    const std::vector<std::pair<double, Target>> wanted = {{0.8, {2}}, {2.1, {0}}};
    std::size_t presses = 0;
    Moment before = script.at(0);
    EXPECT_EQ(before.act, Act::pressRecord);
    for (int i = 1; i < 100 * script.length(); ++i) {
        const double t = 0.01 * i;
        const Moment now = script.at(t);
        if (now.press > before.press && now.from.button != Target::kRecord) {
            ASSERT_LT(presses, wanted.size());
            EXPECT_EQ(now.from, wanted[presses].second);
            EXPECT_NEAR(now.stageTime, wanted[presses].first, 0.011);
            const Moment just = script.at(t - 0.02);
            EXPECT_EQ(just.to, now.from);
            EXPECT_DOUBLE_EQ(just.way, 1) << "the hand comes too late";
            ++presses;
        }
        const bool isSameWay = now.to == before.to && now.from == before.from;
        EXPECT_TRUE(isSameWay || now.from == before.to) << t;
        EXPECT_GE(now.way, isSameWay ? before.way : 0);
        EXPECT_LT(now.way, (isSameWay ? before.way : 0) + 0.1) << t;
        EXPECT_GE(now.clock, before.clock);
        EXPECT_GE(now.act, before.act);
        before = now;
    }
    EXPECT_EQ(presses, wanted.size());
    EXPECT_EQ(before.act, Act::pressAgain);
    EXPECT_EQ(before.run, 1);
}

} // namespace

} // namespace zelvo::test
