// SPDX-License-Identifier: MIT
#pragma once

#include "platform/geometry/Outline.h"

#include <vector>

namespace zelvo::geometry {

/// Draws apart what rounding to the grid or the font's own drawing has made touch: corners that lie
/// on other corners or pieces move by a few grid steps into their own narrow side, which leaves
/// solid and holes connected as they were. Corners that bend nothing are dropped. Says whether the
/// loops are free of contact after it.
struct RepairedLoops {
    std::vector<GridLoop> loops;
    bool isClean = false;
};

[[nodiscard]] RepairedLoops drawApart(std::vector<GridLoop> loops);

} // namespace zelvo::geometry
