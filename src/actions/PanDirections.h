// SPDX-License-Identifier: MIT
#pragma once

#include <glm/vec2.hpp>

// Where a pan is going. Velocities are points a second, x to the right, y down.

namespace zelvo::actions {

enum class UIPanGestureRecognizerDirection {
    undefined,
    bottomToTop,
    topToBottom,
    rightToLeft,
    leftToRight
};

enum class TransitionOrientation { unknown, topToBottom, bottomToTop, leftToRight, rightToLeft };

/// Along the axis on which it is faster, the horizontal one if neither is.
[[nodiscard]] UIPanGestureRecognizerDirection direction(const glm::vec2& velocity);

/// Whether it goes that way at more than 1000 points a second.
[[nodiscard]] bool isQuickSwipe(const glm::vec2& velocity, TransitionOrientation orientation);

} // namespace zelvo::actions
