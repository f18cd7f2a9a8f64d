// SPDX-License-Identifier: MIT
#pragma once

#include <QRectF>

#include <span>
#include <vector>

namespace zelvo::ui {

/// A stretch of time, in seconds.
struct TimeSpan {
    double begins = 0;
    double ends = 0;
};

/// Puts spans into lanes, so that those that overlap lie below each other. The spans are in the order
/// of their begins. Each goes into the first lane that is free; if all `most` are taken, into the one
/// that is free next, over what lies there.
///
///     lane 0   ▭▭▭▭   ▭▭▭▭
///     lane 1     ▭▭▭▭    ▭▭
///     lane 2       ▭▭▭▭
[[nodiscard]] std::vector<int> lanesOf(std::span<const TimeSpan> spans, int most);

/// The nearest of some times, if it is no further away than `reach`; otherwise the time itself.
[[nodiscard]] double nearestTo(double time, std::span<const double> targets, double reach);

/// Seconds between two labels of a ruler: a round number, so that labels are at least `room` points apart.
[[nodiscard]] double labelStep(double pointsPerSecond, double room);

/// Where times and lanes are on the strip. Lengths are device-independent pixels (points); x = 0 is the
/// beginning of the performance.
struct TimelineLayout {
    static constexpr int kMostLanes = 3;
    static constexpr double kLeastWidth = 8; ///< of a mark
    static constexpr double kMostLaneHeight = 18;
    static constexpr double kGap = 1; ///< between two marks, in both directions

    double duration = 8; ///< seconds
    double width = 0;    ///< of the whole duration
    double top = 0;      ///< of the room for lanes
    double height = 0;   ///< of that room
    int lanes = 1;

    [[nodiscard]] double pointsPerSecond() const { return duration > 0 ? width / duration : 0; }

    /// What is before the beginning, such as a press in the count-in, is at the left edge; what is
    /// after the end is at the right one.
    [[nodiscard]] double xOf(double time) const;
    /// Within the performance.
    [[nodiscard]] double timeAt(double x) const;
    [[nodiscard]] double laneHeight() const;
    [[nodiscard]] QRectF placeOf(const TimeSpan& span, int lane) const;
    /// The time that a mark covers, which is never less than its least width.
    [[nodiscard]] TimeSpan covered(const TimeSpan& span) const;
};

} // namespace zelvo::ui
