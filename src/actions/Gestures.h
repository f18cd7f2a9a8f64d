// SPDX-License-Identifier: MIT
#pragma once

#include <glm/vec2.hpp>

namespace zelvo::actions {

class ActionController;
enum class RegisterUndo;

/// How far a recognised gesture has come.
enum class GestureState { began, changed, ended, cancelled };

/// Fingers on the scene as camera operator: a pan looks around, a pinch pushes in and springs back,
/// a double tap brings the stage home. Each step goes through ActionController::addAction, so that
/// a gesture made during a run is a stream of small records at their times.
///
///     pan    began ──> changed ... changed ──> ended or cancelled
///            "Camera Move"   turns              release
///     pinch  began ──> changed ... changed ──> ended
///            "Camera Pinch"  further steps      release
///
/// One gesture has one identifier. Its first record stands for it in undo and history; what is
/// redone is that record alone. Main thread. A gesture begins with its began state.
class Gestures {
public:
    explicit Gestures(ActionController& owner);

    /// One finger or the pressed mouse. `location` is in points of the scene's view, x to the
    /// right, y down; only its changes count.
    void pan(GestureState state, const glm::vec2& location);

    /// Two fingers. `velocity` is the growth of their distance in scale factors per second. A
    /// cancelled pinch is one more step without a release: the camera stays pushed in until the
    /// next stop.
    void pinch(GestureState state, float velocity);

    /// Means nothing to the camera.
    void tap() {}

    /// All nodes and the camera, but not its handles, come home with an overshoot.
    void doubleTap();

    /// One step of a pinch: the camera goes `value` scene units further in.
    void pinchCamera(float value, int identifier, RegisterUndo registerUndo);

private:
    void beginPan();
    void releasePan();
    void releasePinch();

    ActionController& controller;
    glm::vec2 previousLocation{0};   ///< the last touch of a pan
    int panningActionIdentifier = 0; ///< of the pan under way or the last one
    int pinchActionIdentifier = 0;   ///< likewise
};

} // namespace zelvo::actions
