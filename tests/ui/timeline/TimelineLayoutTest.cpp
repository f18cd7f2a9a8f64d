// SPDX-License-Identifier: MIT
#include "ui/timeline/TimelineLayout.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>
#include <vector>

namespace zelvo::ui {
namespace {

/// The lanes of spans that are drawn as rows of "=", one character a second.
std::string lanesOfDrawn(const std::vector<std::string>& drawn, int most) {
    std::vector<TimeSpan> spans;
    for (const std::string& row : drawn)
        spans.push_back(
            {static_cast<double>(row.find('=')), static_cast<double>(row.rfind('=') + 1)});
    std::string lanes;
    for (const int lane : lanesOf(spans, most))
        lanes += std::to_string(lane);
    return lanes;
}

TEST(TimelineLanes, KeepWhatOverlapsApart) {
    EXPECT_EQ(lanesOfDrawn({"==", "  ==", "     ="}, 3), "000") << "end to end is no overlap";
    EXPECT_EQ(lanesOfDrawn({"===", " ===", "   =="}, 3), "010") << "the first free lane";
    EXPECT_EQ(lanesOfDrawn({"=====", " ==", "  ====", "    =="}, 3), "0121");
    EXPECT_EQ(lanesOfDrawn({"====", " ==", "  ="}, 2), "011") << "over what ends first";
    EXPECT_EQ(lanesOfDrawn({"==", "==", "=="}, 1), "000");
}

TEST(TimelineLanes, AreNeverOverlappedWhileOneIsFree) {
    std::mt19937 draw(5);
    std::uniform_real_distribution<double> length(0.1, 1.4);
    std::vector<TimeSpan> spans;
    for (int i = 0; i < 60; ++i)
        spans.push_back({i * 0.5, i * 0.5 + length(draw)}); // at most three at once
    const std::vector<int> lanes = lanesOf(spans, 3);
    for (std::size_t i = 0; i < spans.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j)
            EXPECT_FALSE(lanes[i] == lanes[j] && spans[j].ends > spans[i].begins) << i << " " << j;
    }
}

TEST(TimelineSnap, TakesTheNearestTimeWithinReach) {
    const std::vector<double> targets{1, 2, 2.1};
    EXPECT_EQ(nearestTo(1.9, targets, 0.15), 2);
    EXPECT_EQ(nearestTo(2.07, targets, 0.15), 2.1) << "not the first one in reach";
    EXPECT_EQ(nearestTo(1.5, targets, 0.15), 1.5);
    EXPECT_EQ(nearestTo(1.5, {}, 10), 1.5);
}

TEST(TimelineRuler, LabelsRoundTimesWithRoomBetween) {
    for (double points = 0.05; points < 2000; points *= 1.3) {
        const double step = labelStep(points, 56);
        EXPECT_TRUE(step * points >= 56 || step == 600) << points;
        EXPECT_TRUE(step * points < 56 * 2.6 || step == 0.1) << "rarer than needed: " << points;
    }
}

TEST(TimelinePlaces, StayOnTheStrip) {
    TimelineLayout layout{.duration = 10, .width = 500, .top = 12, .height = 36, .lanes = 3};
    const QRectF strip(0, 12, 500, 36);
    const auto place = [&](double begins, double ends, int lane) {
        return layout.placeOf({begins, ends}, lane);
    };
    EXPECT_DOUBLE_EQ(place(2, 4, 0).x(), 100);
    EXPECT_NEAR(place(2, 4, 0).width(), 100, TimelineLayout::kGap);
    for (int lane = 0; lane < 3; ++lane) {
        for (const TimeSpan& span :
             {TimeSpan{-1.5, -1}, TimeSpan{3, 3}, TimeSpan{9.99, 10.8}, TimeSpan{14, 15}}) {
            const QRectF shown = layout.placeOf(span, lane);
            EXPECT_TRUE(strip.contains(shown)) << span.begins;
            EXPECT_GE(shown.width(), TimelineLayout::kLeastWidth - TimelineLayout::kGap);
        }
        EXPECT_FALSE(lane > 0 && place(1, 2, lane).intersects(place(1, 2, lane - 1)));
    }
    EXPECT_EQ(place(-1.5, -1, 0).x(), 0) << "in the count-in";
    layout.lanes = 1;
    EXPECT_NEAR(place(1, 2, 0).center().y(), strip.center().y(), 1)
        << "a single lane is in the middle";
    EXPECT_EQ(layout.timeAt(-40), 0);
    EXPECT_EQ(layout.timeAt(250), 5);
    EXPECT_EQ(layout.timeAt(900), 10);
    layout.width = 0; // not laid out yet
    EXPECT_TRUE(std::isfinite(place(1, 2, 0).x()) && std::isfinite(layout.timeAt(5)));
}

} // namespace
} // namespace zelvo::ui
