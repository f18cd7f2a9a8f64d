// SPDX-License-Identifier: MIT
#include "actions/PanDirections.h"

#include <cmath>

namespace zelvo::actions {

UIPanGestureRecognizerDirection direction(const glm::vec2& velocity) {
    using Direction = UIPanGestureRecognizerDirection;
    if (std::abs(velocity.x) < std::abs(velocity.y))
        return velocity.y > 0 ? Direction::topToBottom : Direction::bottomToTop;
    return velocity.x > 0 ? Direction::leftToRight : Direction::rightToLeft;
}

bool isQuickSwipe(const glm::vec2& velocity, TransitionOrientation orientation) {
    constexpr float kQuick = 1000;
    switch (orientation) {
    case TransitionOrientation::topToBottom:
        return velocity.y > kQuick;
    case TransitionOrientation::bottomToTop:
        return velocity.y < -kQuick;
    case TransitionOrientation::leftToRight:
        return velocity.x > kQuick;
    case TransitionOrientation::rightToLeft:
        return velocity.x < -kQuick;
    case TransitionOrientation::unknown:
        break;
    }
    return false;
}

} // namespace zelvo::actions
