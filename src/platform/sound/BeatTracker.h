// SPDX-License-Identifier: MIT
#pragma once

#include "platform/sound/OnsetStrength.h"

#include <vector>

namespace zelvo::sound {

struct TrackedBeats {
    std::vector<double> times; ///< seconds from the first sample, ascending
    double tempo = 0.0;        ///< beats a minute; 0 if there are none
};

/// The beats of a sound: a steady tempo is estimated from the distances at which onsets repeat, and
/// the series of moments is found that holds the tempo best and falls on the strongest onsets (dynamic
/// programming after D. Ellis, "Beat Tracking by Dynamic Programming", 2007). Each beat is then moved
/// to the attack that is near it.
[[nodiscard]] TrackedBeats trackBeats(const OnsetStrength& sound);

} // namespace zelvo::sound
