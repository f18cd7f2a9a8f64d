// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>

namespace zelvo::ui {

/// How finely the live stage is drawn: drawn pixels divided by the view's pixels, on each side. The
/// scale falls when frames take long, because sharpness matters less than timing, and rises again
/// when there is time. Above 1, edges become smoother. A picture that does not change is drawn
/// finer in two steps, and then not drawn again.
class DrawScale {
public:
    static constexpr double kMax = 1.5;
    static constexpr double kMin = 0.5;
    static constexpr double kStart = 1.0;
    static constexpr double kLongFrame = 0.022; ///< seconds; leaves much room at 30 frames a second
    /// Seconds; a display of 60 Hz has no shorter frames.
    static constexpr double kShortFrame = 0.0175;

    static constexpr double kMaxAtRest = 2.0;
    static constexpr int kBeforeRest = 15;   ///< equal frames before the first finer step
    static constexpr int kBeforeFinest = 45; ///< equal frames before the last step

    /// What the next frame will show (SCNView::pictureKey); empty: always different.
    void nextShows(std::optional<std::uint64_t> picture);

    [[nodiscard]] double value() const;

    /// Whether the picture has not changed for some frames.
    [[nodiscard]] bool isAtRest() const { return repeats >= kBeforeRest; }

    /// Whether the next frame would equal the last one, in content and scale.
    [[nodiscard]] bool isDrawn() const;

    /// Seconds from the request of a frame until it was on the screen.
    void frameTook(double seconds);

private:
    void change(double wanted);

    std::optional<std::uint64_t> shown;
    int repeats = 0; ///< number of equal frames in a row

    double scale = kStart;
    double mean = 0; ///< mean time of frames since the last change, weighted to the newest
    int frames = 0;  ///< number of frames since the last change
    int hangups = 0; ///< number of hang-ups in a row
};

} // namespace zelvo::ui
