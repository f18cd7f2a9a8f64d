// SPDX-License-Identifier: MIT
#include "ui/timeline/TimelineLayout.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace zelvo::ui {

namespace {

constexpr auto kSteps =
    std::to_array<double>({0.1, 0.2, 0.5, 1, 2, 5, 10, 15, 30, 60, 120, 300, 600});

} // namespace

std::vector<int> lanesOf(std::span<const TimeSpan> spans, int most) {
    std::vector<double> freeFrom; // of each lane
    std::vector<int> lanes;
    lanes.reserve(spans.size());
    for (const TimeSpan& span : spans) {
        auto lane =
            std::ranges::find_if(freeFrom, [&](double isFree) { return isFree <= span.begins; });
        if (lane == freeFrom.end() && freeFrom.size() < static_cast<std::size_t>(most))
            lane = freeFrom.insert(freeFrom.end(), span.begins);
        else if (lane == freeFrom.end())
            lane = std::ranges::min_element(freeFrom);
        *lane = std::max(*lane, span.ends);
        lanes.push_back(static_cast<int>(lane - freeFrom.begin()));
    }
    return lanes;
}

double nearestTo(double time, std::span<const double> targets, double reach) {
    double nearest = time;
    double distance = reach;
    for (const double target : targets) {
        if (std::abs(target - time) <= distance) {
            nearest = target;
            distance = std::abs(target - time);
        }
    }
    return nearest;
}

double labelStep(double pointsPerSecond, double room) {
    const auto* const step = std::ranges::find_if(
        kSteps, [&](double seconds) { return seconds * pointsPerSecond >= room; });
    return step == kSteps.end() ? kSteps.back() : *step;
}

double TimelineLayout::xOf(double time) const {
    return std::clamp(time * pointsPerSecond(), 0.0, width);
}

double TimelineLayout::timeAt(double x) const {
    return width > 0 ? std::clamp(x / width, 0.0, 1.0) * duration : 0;
}

double TimelineLayout::laneHeight() const {
    return std::min(kMostLaneHeight, std::floor(height / lanes));
}

TimeSpan TimelineLayout::covered(const TimeSpan& span) const {
    const double least = width > 0 ? kLeastWidth / pointsPerSecond() : 0;
    const double begins = std::clamp(span.begins, 0.0, std::max(0.0, duration - least));
    return {begins, std::max(span.ends, begins + least)};
}

QRectF TimelineLayout::placeOf(const TimeSpan& span, int lane) const {
    const TimeSpan shown = covered(span);
    const double above = (height - lanes * laneHeight()) / 2;
    const double x = xOf(shown.begins);
    const double y = top + above + lane * laneHeight();
    return {x, y, std::max(1.0, xOf(shown.ends) - x - kGap), std::max(1.0, laneHeight() - kGap)};
}

} // namespace zelvo::ui
