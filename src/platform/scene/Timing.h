// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace zelvo::scene {

/// Maps progress 0 .. 1 to a value that can leave 0 .. 1. Null means linear.
using TimingFunction = std::function<float(float)>;

/// Seconds. A time so close to an end counts as the end, because frame times are sums with rounding
/// errors.
inline constexpr double kTimeTolerance = 1e-9;

} // namespace zelvo::scene
