// SPDX-License-Identifier: MIT
#pragma once

#include "app/Performance.h"
#include "platform/foundation/JsonObject.h"

#include <cstddef>

namespace zelvo::app {

inline constexpr std::size_t kMaxGestureSteps = 1000; ///< points or velocities of one gesture
inline constexpr double kFarthestPoint = 100'000;     ///< of a pan, points
inline constexpr double kFastestPinch = 1000;         ///< scale factors per second
inline constexpr foundation::Range kGestureTime{0.02, 3600}; ///< seconds

/// The member "pan" of a cue with its "for".
[[nodiscard]] Pan readPan(foundation::JsonObject& cue, foundation::Problems& problems);

/// The member "pinch" of a cue with its "for".
[[nodiscard]] Pinch readPinch(foundation::JsonObject& cue, foundation::Problems& problems);

} // namespace zelvo::app
