// SPDX-License-Identifier: MIT
#pragma once

#include "app/Performance.h"
#include "platform/foundation/JsonObject.h"

#include <cstddef>

namespace zelvo::app {

inline constexpr std::size_t kMaxGestureSteps = 1000; ///< points or velocities of one gesture
inline constexpr double kFarthestPoint = 100'000;     ///< limit of a pan's coordinates
inline constexpr double kFastestPinch = 1000;         ///< scale factors per second
inline constexpr foundation::Range kGestureTime{0.02, 3600}; ///< seconds

/// Reads the members "pan" and "for" of a cue.
[[nodiscard]] Pan readPan(foundation::JsonObject& cue, foundation::Problems& problems);

/// Reads the members "pinch" and "for" of a cue.
[[nodiscard]] Pinch readPinch(foundation::JsonObject& cue, foundation::Problems& problems);

} // namespace zelvo::app
