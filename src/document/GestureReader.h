// SPDX-License-Identifier: MIT
#pragma once

#include "document/Performance.h"
#include "platform/foundation/JsonObject.h"

#include <cstddef>
#include <optional>

namespace zelvo::document {

inline constexpr std::size_t kMaxGestureSteps = 100'000;  ///< points or velocities of one gesture
inline constexpr double kFarthestPoint = 100'000;         ///< limit of a pan's coordinates
inline constexpr double kFastestPinch = 1000;             ///< scale factors per second
inline constexpr foundation::Range kGestureTime{0, 3600}; ///< seconds

/// Reads the member "for" of a cue: seconds; nothing for "end", which stands for the end of the run.
[[nodiscard]] std::optional<double>
readLasting(foundation::JsonObject& cue, foundation::Range range);

/// Reads the members "pan", "for", "times" and "begins" of a cue.
[[nodiscard]] Pan readPan(foundation::JsonObject& cue, foundation::Problems& problems);

/// Reads the members "pinch", "for", "times" and "begins" of a cue.
[[nodiscard]] Pinch readPinch(foundation::JsonObject& cue, foundation::Problems& problems);

} // namespace zelvo::document
