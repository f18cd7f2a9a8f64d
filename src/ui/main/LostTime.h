// SPDX-License-Identifier: MIT
#pragma once

namespace zelvo::ui {

/// Measures how much time a run loses by late ticks, and how long pictures must pause because of
/// that.
///
/// A tick that comes late is not made up for, so the run takes longer than it should. While a run
/// loses more than a twentieth of its time, pictures are skipped, except for one from time to time.
/// Times are the run loop's, in seconds.
class LostTime {
public:
    static constexpr double kAllowedShare = 0.05;
    static constexpr double kLongestRest = 0.25; ///< between two pictures
    static constexpr double kMaxKept = 0.1;      ///< a single delay is forgotten after 2 s

    void runBegan(double now);
    void ticked(double now);
    void runEnded();

    /// The earliest time of the next picture, if the last one was at `last`.
    [[nodiscard]] double drawsFrom(double last) const;

private:
    bool runs = false;
    double lastTick = 0;
    double lost = 0; ///< time lost beyond the allowed share, up to the last tick
};

} // namespace zelvo::ui
