// SPDX-License-Identifier: MIT
#pragma once

#include "platform/geometry/Outline.h"

#include <vector>

namespace zelvo::geometry {

/// Separates parts of loops that touch, after rounding to the grid or by the font's drawing. A
/// corner on another corner or piece is moved a few grid steps into its own narrow side; solid and
/// holes stay connected as before. Corners in a straight line are dropped. `isClean` tells whether
/// nothing touches any more.
struct RepairedLoops {
    std::vector<GridLoop> loops;
    bool isClean = false;
};

[[nodiscard]] RepairedLoops drawApart(std::vector<GridLoop> loops);

} // namespace zelvo::geometry
