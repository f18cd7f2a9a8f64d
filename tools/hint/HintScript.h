// SPDX-License-Identifier: MIT
#pragma once

#include "document/Performance.h"

#include <string>
#include <vector>

namespace zelvo::hint {

/// What the hand does. The caption says the same.
enum class Act { pressRecord, waitForCountIn, pressActions, pressAgain };

/// Where the hand goes: to the record button or to one of the catalogue's buttons.
struct Target {
    static constexpr int kRecord = -1;

    int button = kRecord; ///< index

    friend bool operator==(const Target&, const Target&) = default;
};

/// One moment of the hint.
struct Moment {
    Act act = Act::pressRecord;
    double stageTime = 0; ///< movie time of the stage's picture, in seconds
    double countIn = 0;   ///< the rest of the count-in, from 1 to 0
    double run = 0;       ///< progress of the run, 0 to 1
    double clock = 0;     ///< seconds shown by the record button
    Target from;          ///< the hand moves from here …
    Target to;            ///< … to here
    double way = 0;       ///< progress of the hand's movement, 0 to 1
    double press = 0;     ///< 1 at a touch, then fades to 0
};

/// The script of the hint that shows how to record actions. It follows a performance: each cue is a
/// press.
///
///     0 ──press record──> count-in, shortened ──> the performance, with its presses ──> again
class HintScript {
public:
    /// `buttons`: the titles of the buttons shown. All cues must press one of these; otherwise the
    /// process ends.
    HintScript(const document::Performance& performance, const std::vector<std::string>& buttons);

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
    double runBegin; ///< start of the performance in the hint
    std::vector<Touch> touches;
};

} // namespace zelvo::hint
