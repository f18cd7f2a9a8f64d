// SPDX-License-Identifier: MIT
#pragma once

#include <glm/vec2.hpp>

// The direction of a pan. Velocities are in points per second, x right, y down.

namespace zelvo::actions {

enum class UIPanGestureRecognizerDirection {
    undefined,
    bottomToTop,
    topToBottom,
    rightToLeft,
    leftToRight
};

enum class TransitionOrientation { unknown, topToBottom, bottomToTop, leftToRight, rightToLeft };

/// The direction on the axis with the higher speed; horizontal if both are equal.
[[nodiscard]] UIPanGestureRecognizerDirection direction(const glm::vec2& velocity);

/// Whether the pan moves along that axis with more than 1000 points per second.
[[nodiscard]] bool isQuickSwipe(const glm::vec2& velocity, TransitionOrientation orientation);

} // namespace zelvo::actions
