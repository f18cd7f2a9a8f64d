// SPDX-License-Identifier: MIT
#pragma once

namespace zelvo::ui {

/// How finely the live stage is drawn: drawn pixels over the view's, along each side. Falls while
/// frames take long, so that a slow machine loses sharpness before it loses time, and rises again
/// where there is room. Above 1 the surplus smooths edges.
class DrawScale {
public:
    static constexpr double kMost = 1.5;
    static constexpr double kLeast = 0.5;
    static constexpr double kStart = 1.0;
    static constexpr double kLongFrame = 0.028;   ///< seconds; 30 frames a second with some room
    static constexpr double kShortFrame = 0.0175; ///< a display of 60 Hz leaves no shorter ones

    [[nodiscard]] double value() const { return scale; }

    /// What a frame took from its asking to the screen, seconds.
    void frameTook(double seconds);

private:
    void change(double wanted);

    double scale = kStart;
    double mean = 0; ///< of the frames since the last change, the newest count most
    int frames = 0;  ///< since then
    int hangups = 0; ///< one after another, up to now
};

} // namespace zelvo::ui
