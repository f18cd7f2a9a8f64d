// SPDX-License-Identifier: MIT
#pragma once

#include "actions/Gestures.h"

#include <glm/vec2.hpp>

#include <optional>

namespace zelvo::ui {

// Places are in points of the scene's view, x right, y down. `viewSize` is the view's size.

/// A drag with one finger or the mouse.
struct PanGesture {
    actions::GestureState state = actions::GestureState::began;
    glm::vec2 location{0};
    glm::vec2 viewSize{1};
    glm::vec2 start{0}; ///< where it was pressed; a drag begins a little later
};

/// A pinch with two fingers, a touchpad, or Ctrl and the wheel.
struct PinchGesture {
    actions::GestureState state = actions::GestureState::began;
    float scale = 1;    ///< distance of the fingers, relative to the start
    float velocity = 0; ///< change of the scale per second
    glm::vec2 location{0};
    glm::vec2 viewSize{1};
};

struct TapGesture {
    glm::vec2 location{0};
    glm::vec2 viewSize{1};
};

/// The mouse pointer over the scene, without a pressed button.
struct Hover {
    glm::vec2 location{0};
    glm::vec2 viewSize{1};
};

/// Receives gestures on the scene: the camera, while the catalogue is shown, or the nodes, while
/// the style panel is shown. Gestures that are not overridden do nothing. Main thread.
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
