// SPDX-License-Identifier: MIT
#pragma once

namespace zelvo::model {

/// The opacity of a node at a distance (scene units) from the stage's middle: 1 up to 300, 0 from
/// 650 on, linear between. A parked node is hidden by this.
[[nodiscard]] constexpr float opacityAtDistance(float distance) {
    constexpr float kWhole = 300;
    constexpr float kFadeLength = 350;
    const float gone = (distance - kWhole) / kFadeLength;
    if (gone <= 0)
        return 1;
    return gone >= 1 ? 0 : 1 - gone;
}

} // namespace zelvo::model
