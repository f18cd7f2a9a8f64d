// SPDX-License-Identifier: MIT
#pragma once

#include "platform/geometry/Flatten.h"

namespace zelvo::geometry {

/// Whether the union of these contours would take longer than seconds. That grows with the number
/// of crossings and faster; no letter and no logo has a hundredth of them, but a file can be made to
/// have millions.
[[nodiscard]] bool isTangle(const std::vector<FlatContour>& contours);

} // namespace zelvo::geometry
