// SPDX-License-Identifier: MIT
#pragma once

#include "actions/HandMove.h"

#include <glm/vec2.hpp>

namespace zelvo::actions {

class ActionController;
enum class RegisterUndo;

/// Lets fingers move the camera: a pan turns it, a pinch moves it in and it springs back, a double
/// tap resets the stage. Each step is a recorded action (ActionController::addAction), so a gesture
/// in a run becomes a series of small records.
///
///     pan    began ──> changed ... changed ──> ended or cancelled
///            "Camera Move"   turns              release
///     pinch  began ──> changed ... changed ──> ended
///            "Camera Pinch"  further steps      release
///
/// All records of a gesture share an identifier. The first one represents it in undo and history;
/// redo brings back only that one. A gesture must start with `began`. Main thread.
class Gestures {
public:
    explicit Gestures(ActionController& owner);

    /// One finger, or the mouse with a pressed button. `location` is in points of the scene's view,
    /// x right, y down; only its changes matter.
    void pan(GestureState state, const glm::vec2& location);

    /// Goes on with a pan or a pinch that began before the recording did. Makes no record.
    void resumePan(const glm::vec2& location);
    void resumePinch();

    /// Two fingers. `velocity` is the change of their distance, in scale factors per second. A
    /// cancelled pinch does one more step and no release: the camera stays there until the next
    /// stop.
    void pinch(GestureState state, float velocity);

    /// Does not move the camera.
    void tap() {}

    /// Resets all nodes and the camera, except its handles, with an overshoot.
    void doubleTap();

    /// One step of a pinch: moves the camera `value` scene units further in.
    void pinchCamera(float value, int identifier, RegisterUndo registerUndo);

private:
    void beginPan();
    void turn(const glm::vec2& by);
    void releasePan(double animationFactor);
    void stepPinch(GestureState state, float velocity);
    void releasePinch(double animationFactor);

    ActionController& controller;
    glm::vec2 previousLocation{0};   ///< the last touch of a pan
    int panningActionIdentifier = 0; ///< of the current or last pan
    int pinchActionIdentifier = 0;   ///< of the current or last pinch
};

} // namespace zelvo::actions
