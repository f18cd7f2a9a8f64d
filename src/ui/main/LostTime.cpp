// SPDX-License-Identifier: MIT
#include "ui/main/LostTime.h"

#include "shared/FrameClock.h"

#include <algorithm>

namespace zelvo::ui {

void LostTime::runBegan(double now) {
    runs = true;
    lastTick = now;
    lost = 0;
}

void LostTime::ticked(double now) {
    const double passed = now - lastTick;
    lastTick = now;
    const double late = passed - shared::FrameClock::kStep; // negative after a late one
    lost = std::clamp(lost + late - kAllowedShare * passed, 0.0, kMaxKept);
}

void LostTime::runEnded() {
    runs = false;
}

double LostTime::drawsFrom(double last) const {
    // One late tick is no loss: the next one comes in time.
    if (!runs || lost <= shared::FrameClock::kStep)
        return last;
    return std::min(lastTick + lost / kAllowedShare, last + kLongestRest);
}

} // namespace zelvo::ui
