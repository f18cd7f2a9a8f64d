// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <vector>

namespace zelvo::ui {

/// Where a waveform is drawn. Lengths are in points; x = 0 is the left edge of the picture.
struct WaveformPlace {
    double songStart = 0.0;      ///< x of the song's beginning; negative if it lies to the left
    double pointsPerValue = 4.0; ///< of the waveform's values
    double height = 0.0;
    double left = 0.0; ///< only what is between left and right is drawn
    double right = 0.0;
    double pixelsPerPoint = 1.0; ///< edges lie on whole pixels
};

struct WaveformBar {
    double x = 0.0; ///< of its left edge
    double width = 0.0;
    double reach = 0.0; ///< above and below the middle
};

/// The bars of a waveform, from left to right.
///
/// The distance of two bars stays about the same at any zoom. Where a value is about as wide as a bar,
/// as on a ruler of 30 points a second, each value has its bar, in the middle of its samples. Further
/// away a bar shows the largest of several values; closer, the bars between two values follow a curve
/// through them. While one zooms in, new bars grow between the others.
///
///     |   |   |   |      | . | . | . |      | | | | | | |
///     3 points           5 points           6 points = 3 points of the next step
[[nodiscard]] std::vector<WaveformBar>
barsOf(std::span<const float> values, const WaveformPlace& place);

} // namespace zelvo::ui
