// SPDX-License-Identifier: MIT
#include "model/SilentReplay.h"

#include "shared/FrameClock.h"

#include <utility>

namespace zelvo::model {

using shared::FrameClock;

SilentReplay::SilentReplay(std::function<void()> tick)
    : ticking(calls.scheduleRepeating(FrameClock::kStep, std::move(tick))) {}

void SilentReplay::runUntil(const std::function<bool()>& done) {
    (void)calls.runUntil(done);
}

void SilentReplay::handOver() {
    ticking.invalidate();
}

void SilentReplay::follow() {
    calls.runFor(FrameClock::kStep);
}

} // namespace zelvo::model
