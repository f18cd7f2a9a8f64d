// SPDX-License-Identifier: MIT
#include "actions/TimingCurves.h"

#include "support/ReferenceCurves.h"

#include <gtest/gtest.h>

#include <array>

namespace zelvo::actions {
namespace {

TEST(TimingCurvesTest, AgreeWithThePublishedCubicCurves) {
    // The four standard CSS curves at half the time.
    EXPECT_NEAR(bezierTiming(0.25f, 0.1f, 0.25f, 1.0f)(0.5f), 0.8024f, 1e-4f);
    EXPECT_NEAR(bezierTiming(0.42f, 0.0f, 1.0f, 1.0f)(0.5f), 0.3154f, 1e-4f);
    EXPECT_NEAR(bezierTiming(0.0f, 0.0f, 0.58f, 1.0f)(0.5f), 0.6846f, 1e-4f);
    EXPECT_NEAR(bezierTiming(0.42f, 0.0f, 0.58f, 1.0f)(0.5f), 0.5f, 1e-6f);
    EXPECT_EQ(bezierTiming(0.3f, 0.3f, 0.7f, 0.70005f)(0.37f), 0.37f) << "a straight line";
}

TEST(TimingCurvesTest, SwingLikeAMassOnASpring) {
    // The last one is over-damped.
    // clang-format off
    constexpr auto kSprings = std::to_array<std::array<float, 4>>({
        {55, 480, 1.6f, 25},
        {42, 680, 1.3f, 25},
        {37, 480, 1.3f, 25},
        {57, 480, 1.3f, 25},
        {90, 480, 1.3f, 5 },
    });
    // clang-format on
    for (const auto& [damping, stiffness, mass, velocity] : kSprings) {
        const auto wanted = test::spring(damping, mass, stiffness, velocity);
        const auto curve = springTiming(damping, stiffness, mass, velocity);
        EXPECT_EQ(curve(0), 0);
        for (const float t : {0.02f, 0.1f, 0.25f, 0.5f, 1.0f})
            EXPECT_NEAR(curve(t), wanted(t), 1e-4) << damping << " at " << t;
    }
}

TEST(TimingCurvesTest, SwingAboutTheirEnds) {
    for (const float period : {0.3f, 1.0f, 1.8f}) {
        const auto in = elasticIn(period), out = elasticOut(period);
        EXPECT_EQ(in(0), 0);
        EXPECT_EQ(out(1), 1);
        EXPECT_NEAR(out(period / 4), 1, 1e-6) << "a quarter of a period after the start";
        for (const float t : {0.1f, 0.4f, 0.9f}) // each is the other played backwards
            EXPECT_NEAR(in(t), 1 - out(1 - t), 1e-5);
        const auto both = elasticInOut(period, 0.45f);
        EXPECT_NEAR(both(0.4999f), both(0.5f), 1e-3) << "the halves meet";
        EXPECT_NEAR(both(0.5f), 0.5f, 1e-6);
    }
}

} // namespace
} // namespace zelvo::actions
