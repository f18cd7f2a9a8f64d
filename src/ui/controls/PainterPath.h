// SPDX-License-Identifier: MIT
#pragma once

#include "platform/geometry/BezierPath.h"

#include <QPainterPath>

namespace zelvo::ui {

/// An outline (y up) as Qt paints it (y down). Any thread.
[[nodiscard]] QPainterPath painterPath(const geometry::BezierPath& outline);

} // namespace zelvo::ui
