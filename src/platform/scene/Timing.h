// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace zelvo::scene {

/// Maps progress 0..1 to a value that is usually, not always, in 0..1. Null means linear.
using TimingFunction = std::function<float(float)>;

} // namespace zelvo::scene
