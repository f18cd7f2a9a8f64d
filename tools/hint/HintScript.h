// SPDX-License-Identifier: MIT
#pragma once

#include "app/Performance.h"

#include <string>
#include <vector>

namespace zelvo::hint {

/// What the hand does, and what the caption says of it.
enum class Act { pressRecord, waitForCountIn, pressActions, pressAgain };

/// Where the hand goes: the record button, or one of the catalogue's.
struct Target {
    static constexpr int kRecord = -1;

    int button = kRecord; ///< from 0

    friend bool operator==(const Target&, const Target&) = default;
};

/// One moment of the hint.
struct Moment {
    Act act = Act::pressRecord;
    double stageTime = 0; ///< which picture of the performance stands behind; seconds of the movie
    double countIn = 0;   ///< what is left of the count-in, 1 to 0
    double run = 0;       ///< how far the run has come, 0 to 1
    double clock = 0;     ///< what the record button shows, seconds
    Target from;          ///< the hand travels from here …
    Target to;            ///< … to here
    double way = 0;       ///< how far it has come, 0 to 1
    double press = 0;     ///< 1 at a touch, fading to 0
};

/// The course of the hint that shows how to record actions, made of a performance: each of its
/// cues is a press.
///
///     0 ──press record──> count-in, shortened ──> the performance, with its presses ──> again
class HintScript {
public:
    /// `buttons`: the titles of the catalogue's buttons that are shown. A cue that presses another
    /// one is a programming error.
    HintScript(const app::Performance& performance, const std::vector<std::string>& buttons);

    /// Seconds.
    [[nodiscard]] double length() const { return runBegin + duration; }

    [[nodiscard]] Moment at(double seconds) const;

private:
    struct Touch {
        double time = 0; ///< seconds of the hint
        Target target;
    };

    [[nodiscard]] double runEnd() const;
    [[nodiscard]] Act actAt(double seconds) const;

    double duration; ///< of the performance, seconds
    double runBegin; ///< when it begins in the hint
    std::vector<Touch> touches;
};

} // namespace zelvo::hint
