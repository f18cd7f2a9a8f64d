// SPDX-License-Identifier: MIT
#include "ui/audio/WaveformBars.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace zelvo::ui {

namespace {

constexpr double kMinPitch = 3.0;   ///< points from bar to bar
constexpr double kGrowthFrom = 4.5; ///< pitch at which bars begin to grow between the others
constexpr double kBarWidth = 2.0;
/// A value of 1 would reach beyond the edge; means of music seldom are above a half.
constexpr double kGain = 1.9;

/// The step from bar to bar at a zoom.
struct Step {
    double values = 1.0; ///< a power of two
    double growth = 0.0; ///< of the bars between, 0 to 1
};

Step stepOf(double pointsPerValue) {
    const double values = std::exp2(std::ceil(std::log2(kMinPitch / pointsPerValue)));
    const double pitch = values * pointsPerValue;
    return {values, std::clamp((pitch - kGrowthFrom) / (2 * kMinPitch - kGrowthFrom), 0.0, 1.0)};
}

/// A curve through the values, each of which stands in the middle of its samples (after E. Catmull and
/// R. Rom, "A Class of Local Interpolating Splines", 1974).
double curveAt(std::span<const float> values, double at) {
    const double place = std::floor(at - 0.5);
    const double t = at - 0.5 - place;
    const auto value = [&](int offset) {
        const double index = std::clamp(place + offset, 0.0, double(values.size()) - 1);
        return static_cast<double>(values[static_cast<std::size_t>(index)]);
    };
    const double a = value(-1);
    const double b = value(0);
    const double c = value(1);
    const double d = value(2);
    const double curve =
        b + t / 2 * (c - a + t * (2 * a - 5 * b + 4 * c - d + t * (3 * (b - c) + d - a)));
    return std::max(curve, 0.0);
}

/// The largest of some values around a place.
double largestAround(std::span<const float> values, double at, std::ptrdiff_t count) {
    const auto size = std::ssize(values);
    const auto middle = static_cast<std::ptrdiff_t>(std::floor(at));
    const auto first = std::clamp<std::ptrdiff_t>(middle - count / 2, 0, size - 1);
    const auto end = std::clamp(middle - count / 2 + count, first + 1, size);
    return *std::max_element(values.begin() + first, values.begin() + end);
}

} // namespace

std::vector<WaveformBar> barsOf(std::span<const float> values, const WaveformPlace& place) {
    std::vector<WaveformBar> bars;
    if (values.empty() || place.pointsPerValue <= 0.0)
        return bars;
    const Step step = stepOf(place.pointsPerValue);
    const auto onPixel = [&](double length) {
        return std::round(length * place.pixelsPerPoint) / place.pixelsPerPoint;
    };
    // No value is left out, also while the bars between are too narrow to be drawn.
    const bool showsBetween = onPixel(kBarWidth * step.growth) > 0.0;
    const double covered = step.values * (showsBetween ? 1 - step.growth / 2 : 1.0);
    const auto together =
        static_cast<std::ptrdiff_t>(std::lround(std::min(covered, double(values.size()))));
    // Counted in half steps: the odd bars are those that grow.
    const double half = step.values / 2;
    const auto indexAt = [&](double x) {
        return ((x - place.songStart) / place.pointsPerValue - 0.5) / half;
    };
    const auto end = double(values.size());
    const double first = std::max(std::ceil(-0.5 / half), std::floor(indexAt(place.left)) - 1);
    const double last = std::min((end - 0.5) / half, indexAt(place.right) + 1);
    const auto count = static_cast<std::ptrdiff_t>(std::max(last - first + 1, 0.0));
    for (std::ptrdiff_t i = 0; i < count; ++i) {
        const double index = first + double(i);
        const double at = 0.5 + index * half;
        const bool isBetween = std::fmod(index, 2.0) != 0.0;
        const double width = onPixel(kBarWidth * (isBetween ? step.growth : 1.0));
        if (width <= 0.0)
            continue;
        const double value =
            together > 1 ? largestAround(values, at, together) : curveAt(values, at);
        const double x = place.songStart + at * place.pointsPerValue - width / 2;
        bars.push_back(
            {onPixel(x), width, onPixel(std::min(value * kGain, 1.0) * place.height / 2)});
    }
    return bars;
}

} // namespace zelvo::ui
