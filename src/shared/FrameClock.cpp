// SPDX-License-Identifier: MIT
#include "shared/FrameClock.h"

#include <cmath>

namespace zelvo::shared {

namespace {

/// in frames; allows for times that were rounded
constexpr double kRounding = 1e-6;

} // namespace

int FrameClock::nearestFrame(double seconds) {
    return static_cast<int>(std::lround(seconds * kFramesPerSecond));
}

int FrameClock::frameSeenAt(double seconds) {
    return static_cast<int>(std::floor(seconds * kFramesPerSecond + kRounding));
}

int FrameClock::frameReaching(double seconds) {
    return static_cast<int>(std::ceil(seconds / kStep - kRounding));
}

} // namespace zelvo::shared
