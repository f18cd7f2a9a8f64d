// SPDX-License-Identifier: MIT
#pragma once

namespace zelvo::ui {

/// How much of a run's time was lost to late ticks, and how long pictures are left out for it.
///
/// A beat that the clock missed is not made up for, so a run takes longer than it should. While it
/// loses more than a twentieth of its time, pictures are left out, but for one now and then that
/// shows how it goes. Times are the run loop's, seconds.
class LostTime {
public:
    static constexpr double kAllowedShare = 0.05;
    static constexpr double kLongestRest = 0.25; ///< from one picture to the next
    static constexpr double kMaxKept = 0.1;      ///< a single standstill is forgiven after 2 s

    void runBegan(double now);
    void ticked(double now);
    void runEnded();

    /// When the next picture may be drawn, if the last one was at that time.
    [[nodiscard]] double drawsFrom(double last) const;

private:
    bool runs = false;
    double lastTick = 0;
    double lost = 0; ///< beyond the allowed share, up to the last tick
};

} // namespace zelvo::ui
