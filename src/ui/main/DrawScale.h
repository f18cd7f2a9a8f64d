// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>

namespace zelvo::ui {

/// How finely the live stage is drawn: drawn pixels over the view's, along each side. Falls while
/// frames take long, so that a slow machine loses sharpness before it loses time, and rises again
/// where there is room. Above 1 the surplus smooths edges. What stands still is drawn more
/// finely, in two steps, and then left alone.
class DrawScale {
public:
    static constexpr double kMax = 1.5;
    static constexpr double kMin = 0.5;
    static constexpr double kStart = 1.0;
    static constexpr double kLongFrame = 0.022;   ///< seconds; leaves 30 a second much room
    static constexpr double kShortFrame = 0.0175; ///< a display of 60 Hz leaves no shorter ones

    static constexpr double kMaxAtRest = 2.0;
    static constexpr int kBeforeRest = 15;   ///< frames that show the same
    static constexpr int kBeforeFinest = 45; ///< of them, until the last step

    /// What the next frame shows (SCNView::pictureKey); empty: something new.
    void nextShows(std::optional<std::uint64_t> picture);

    [[nodiscard]] double value() const;

    /// Whether the next frame is as the one before, picture and scale.
    [[nodiscard]] bool isDrawn() const;

    /// What a frame took from its asking to the screen, seconds.
    void frameTook(double seconds);

private:
    [[nodiscard]] bool isAtRest() const { return repeats >= kBeforeRest; }

    void change(double wanted);

    std::optional<std::uint64_t> shown;
    int repeats = 0; ///< frames in a row that showed the same as the one before

    double scale = kStart;
    double mean = 0; ///< of the frames since the last change, the newest count most
    int frames = 0;  ///< since then
    int hangups = 0; ///< one after another, up to now
};

} // namespace zelvo::ui
