// SPDX-License-Identifier: MIT
#pragma once

#include "actions/Gestures.h"

#include <glm/vec2.hpp>

namespace zelvo::ui {

// Places are points of the scene's view, x to the right, y down; so is `viewSize`, its size.

/// One finger or the pressed mouse on its way.
struct PanGesture {
    actions::GestureState state = actions::GestureState::began;
    glm::vec2 location{0};
    glm::vec2 viewSize{1};
};

/// Two fingers, or what stands for them: a touchpad's pinch, Ctrl with the wheel.
struct PinchGesture {
    actions::GestureState state = actions::GestureState::began;
    float scale = 1;    ///< distance of the fingers over that at the beginning
    float velocity = 0; ///< growth of the scale a second
    glm::vec2 location{0};
    glm::vec2 viewSize{1};
};

struct TapGesture {
    glm::vec2 location{0};
    glm::vec2 viewSize{1};
};

/// Where gestures on the scene go: to the camera while the catalogue shows, to the things on the
/// stage while the style panel shows. Main thread.
class GestureDelegate {
public:
    virtual ~GestureDelegate() = default;

    virtual void handlePinch(const PinchGesture& pinch) = 0;
    virtual void handlePan(const PanGesture& pan) = 0;
    virtual void handleTap(const TapGesture& tap) = 0;
    virtual void handleDoubleTap(const TapGesture& tap) = 0;
};

} // namespace zelvo::ui
