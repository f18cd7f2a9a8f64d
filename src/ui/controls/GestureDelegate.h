// SPDX-License-Identifier: MIT
#pragma once

#include "actions/Gestures.h"

#include <glm/vec2.hpp>

#include <optional>

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

/// The pointer over the scene with no button pressed.
struct Hover {
    glm::vec2 location{0};
    glm::vec2 viewSize{1};
};

/// Where gestures on the scene go: to the camera while the catalogue shows, to the things on the
/// stage while the style panel shows. A gesture that is not overridden does nothing. Main thread.
class GestureDelegate {
public:
    virtual ~GestureDelegate() = default;

    virtual void handlePinch(const PinchGesture& /*pinch*/) {}

    virtual void handlePan(const PanGesture& /*pan*/) {}

    virtual void handleTap(const TapGesture& /*tap*/) {}

    virtual void handleDoubleTap(const TapGesture& /*tap*/) {}

    /// Empty: the pointer has left the scene.
    virtual void handleHover(const std::optional<Hover>& /*hover*/) {}
};

} // namespace zelvo::ui
