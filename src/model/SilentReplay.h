// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/RunLoop.h"

#include <functional>

namespace zelvo::model {

/// Runs a performance at once, without showing it, on a run loop of its own. What the actions post or
/// delay comes in the same order as in a movie, and the program's own timers do not notice.
///
/// A live run can go on from there: then it hands on each of its ticks, so that delayed calls still come.
class SilentReplay {
public:
    /// `tick` does one tick of the clock.
    explicit SilentReplay(std::function<void()> tick);

    [[nodiscard]] foundation::RunLoop& loop() { return calls; }

    /// Ticks until `done`, which is asked after each call.
    void runUntil(const std::function<bool()>& done);

    /// The ticks come from a live run from now on.
    void handOver();
    void follow();

private:
    foundation::VirtualRunLoop calls;
    foundation::Timer ticking;
};

} // namespace zelvo::model
