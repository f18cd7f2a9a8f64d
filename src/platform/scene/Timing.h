// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace zelvo::scene {

/// Maps progress 0..1 to a value that is usually, not always, in 0..1. Null means linear.
using TimingFunction = std::function<float(float)>;

/// Seconds by which an end may be missed and still counts as reached: frame times are sums of
/// fractions.
inline constexpr double kTimeTolerance = 1e-9;

} // namespace zelvo::scene
