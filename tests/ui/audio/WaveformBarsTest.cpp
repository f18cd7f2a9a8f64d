// SPDX-License-Identifier: MIT
#include "ui/audio/WaveformBars.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace zelvo::ui {
namespace {

TEST(WaveformBarsTest, ShowsEachLoudMomentAtAnyZoom) {
    constexpr double kHeight = 100;
    for (int i = 0; i < 60; ++i) {
        const double zoom = 0.02 * std::pow(1.11, i);
        for (std::size_t peak = 1000; peak < 1040; ++peak) {
            std::vector<float> values(3000, 0.1F);
            values[peak] = 0.5F;
            const auto bars =
                barsOf(values, {.pointsPerValue = zoom, .height = kHeight, .right = 3000 * zoom});
            const auto highest = std::ranges::max_element(bars, {}, &WaveformBar::reach);
            ASSERT_NE(highest, bars.end());
            EXPECT_EQ(highest->reach, std::round(0.5 * 1.9 * kHeight / 2)) << zoom << ' ' << peak;
            const double middle = highest->x + highest->width / 2;
            EXPECT_NEAR(middle, (double(peak) + 0.5) * zoom, 3.6) << zoom << ' ' << peak;
        }
    }
}

TEST(WaveformBarsTest, MakesOnlyTheBarsInSight) {
    const std::vector<float> values(100000, 0.1F);
    for (const double zoom : {0.01, 0.5, 4.08, 7.0, 50.0}) {
        const auto bars = barsOf(
            values,
            {.songStart = -0.5 * 100000 * zoom,
             .pointsPerValue = zoom,
             .height = 100,
             .left = -200,
             .right = 200});
        EXPECT_LE(bars.size(), 400 / 2 + 4U) << zoom;
        EXPECT_LE(bars.front().x, -195) << zoom;
        EXPECT_GE(bars.back().x + bars.back().width, 195) << zoom;
    }
}

} // namespace
} // namespace zelvo::ui
