// SPDX-License-Identifier: MIT
#include "HintScript.h"

#include "document/PerformanceReader.h"
#include "platform/foundation/Check.h"

#include <algorithm>
#include <variant>

namespace zelvo::hint {

namespace {

// Seconds.
constexpr double kIntro = 1.1;        ///< until the record button is pressed
constexpr double kCountIn = 1.4;      ///< its length in the hint
constexpr double kRest = 0.3;         ///< how long the hand stays after a touch
constexpr double kArrival = 0.08;     ///< how long it is there before a touch
constexpr double kPress = 0.45;       ///< how long a touch is visible
constexpr double kEpilogue = 1.4;     ///< from the return to the record button to the end
constexpr double kLastTouch = 0.5;    ///< before the end
constexpr double kClockCountIn = 2.0; ///< its length on the clock

double smooth(double x) {
    const double t = std::clamp(x, 0.0, 1.0);
    return t * t * (3 - 2 * t);
}

Target targetOf(const document::Press& press, const std::vector<std::string>& buttons) {
    const auto place = std::ranges::find(buttons, press.title);
    CHECK(place != buttons.end(), "the hint does not show the button {}", press.title);
    return {static_cast<int>(place - buttons.begin())};
}

} // namespace

HintScript::HintScript(
    const document::Performance& performance, const std::vector<std::string>& buttons)
    : duration(performance.duration.value_or(document::kDefaultDuration))
    , runBegin(kIntro + kCountIn) {
    touches.push_back({kIntro, {}});
    for (const document::Cue& cue : performance.cues) {
        if (const auto* const press = std::get_if<document::Press>(&cue.act))
            touches.push_back({runBegin + cue.at, targetOf(*press, buttons)});
    }
    touches.push_back({length() - kLastTouch, {}});
}

double HintScript::runEnd() const {
    return length() - kEpilogue;
}

Act HintScript::actAt(double seconds) const {
    if (seconds < kIntro)
        return Act::pressRecord;
    if (seconds < runBegin)
        return Act::waitForCountIn;
    return seconds < runEnd() ? Act::pressActions : Act::pressAgain;
}

Moment HintScript::at(double seconds) const {
    Moment moment;
    moment.act = actAt(seconds);
    // Before the record button is pressed, show the end of the performance.
    moment.stageTime = seconds < kIntro ? duration : std::clamp(seconds - runBegin, 0.0, duration);
    moment.countIn = std::clamp((runBegin - seconds) / kCountIn, 0.0, 1.0);
    moment.run = std::clamp((seconds - runBegin) / (runEnd() - runBegin), 0.0, 1.0);
    if (seconds >= kIntro)
        moment.clock = kClockCountIn * (1 - moment.countIn) + moment.run * (runEnd() - runBegin);

    const auto next =
        std::ranges::find_if(touches, [seconds](const Touch& t) { return t.time > seconds; });
    const bool isFirst = next == touches.begin();
    moment.from = isFirst ? Target{} : std::prev(next)->target;
    moment.to = next == touches.end() ? moment.from : next->target;
    if (!isFirst) {
        const double left = std::prev(next)->time;
        moment.press = 1 - std::clamp((seconds - left) / kPress, 0.0, 1.0);
        if (next != touches.end()) {
            const double leaves = left + kRest;
            moment.way = smooth((seconds - leaves) / (next->time - kArrival - leaves));
        }
    } else {
        moment.way = smooth(seconds / (kIntro - kArrival));
    }
    return moment;
}

} // namespace zelvo::hint
