// SPDX-License-Identifier: MIT
#pragma once

namespace zelvo::core {

/// The opacity of what stands so far from the stage's middle (scene units): whole up to 300, gone
/// from 650 on, linear between. This is what hides a parked node.
[[nodiscard]] constexpr float opacityAtDistance(float distance) {
    constexpr float kWhole = 300;
    constexpr float kFadeLength = 350;
    const float gone = (distance - kWhole) / kFadeLength;
    if (gone <= 0)
        return 1;
    return gone >= 1 ? 0 : 1 - gone;
}

} // namespace zelvo::core
