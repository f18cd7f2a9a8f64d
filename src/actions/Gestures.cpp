// SPDX-License-Identifier: MIT
#include "actions/Gestures.h"

#include "actions/ActionController.h"
#include "actions/TimingCurves.h"
#include "platform/foundation/Console.h"
#include "platform/scene/SCNAction.h"

#include <cmath>

namespace zelvo::actions {

namespace {

using scene::SCNAction;

constexpr glm::vec3 kHome{0, 0, 0};

// Radians per point. A sideways drag turns more than one up or down.
constexpr float kTurnAboutY = -0.03f;
constexpr float kTurnAboutX = -0.02f;
constexpr double kTurnDuration = 0.4;

constexpr double kReleaseFactor = 0.8; ///< times the base duration

// A velocity of 0.15 is a step of 1.5 units.
constexpr float kPinchVelocity = 0.15f;
constexpr float kPinchUnits = 1.5f;
constexpr float kFallbackVelocity = 0.1f;
constexpr double kPinchDuration = 0.1;

constexpr double kCenterDuration = 0.5;
constexpr float kCenterPeriod = 1.0f;

scene::TimingFunction glide() {
    return bezierTiming(0.1f, 0.7f, 0.5f, 0.98f);
}

/// A handle, and the axis it turns around.
struct Handle {
    scene::SCNNode& node;
    glm::vec3 axis;
    const char* nanLine;
};

/// An orientation beyond a quarter turn has two sets of Euler angles, which differ by half a turn
/// around the other two axes. The return by the shortest way can leave the handle with the wrong
/// set. A relative rotation must start from the angle around the handle's own axis.
void readAboutOwnAxis(const Handle& handle) {
    const glm::quat q = handle.node.orientation();
    const float along = q.x * handle.axis.x + q.y * handle.axis.y + q.z * handle.axis.z;
    float angle = 2 * std::atan2(along, q.w);
    if (std::isnan(angle)) {
        foundation::logLine(handle.nanLine);
        angle = 0;
    }
    handle.node.setEulerAngles(handle.axis * angle);
}

void turnHandle(const Handle& handle, float radians) {
    readAboutOwnAxis(handle);
    handle.node.runAction(SCNAction::rotateBy(handle.axis * radians, kTurnDuration, glide()));
}

void turnCamera(const stage::Nodes& stage, const glm::vec2& d) {
    turnHandle({*stage.cameraYHandle, {0, 1, 0}, "camYHandleRotW.isNaN"}, d.x * kTurnAboutY);
    turnHandle({*stage.cameraXHandle, {1, 0, 0}, "camXHandleRotW.isNaN"}, d.y * kTurnAboutX);
}

void stopHandles(const stage::Nodes& stage) {
    stage.cameraYHandle->removeAllActions();
    stage.cameraXHandle->removeAllActions();
}

void straightenCamera(const stage::Nodes& stage, double duration) {
    stopHandles(stage);
    const auto straighten = SCNAction::rotateTo(kHome, duration, glide(), scene::UnitArc::shortest);
    stage.cameraYHandle->runAction(straighten);
    stage.cameraXHandle->runAction(straighten);
}

void pushCameraIn(const stage::Nodes& stage, float units) {
    const glm::vec3 from = stage.cameraPinchNode->position;
    const auto easeOut = bezierTiming(0, 0, 0.58f, 1);
    stage.cameraPinchNode->runAction(
        SCNAction::moveTo({from.x, from.y, from.z - units}, kPinchDuration, easeOut));
}

} // namespace

Gestures::Gestures(ActionController& owner)
    : controller(owner) {}

void Gestures::pan(GestureState state, const glm::vec2& location) {
    const double factor = controller.model().animationFactor();
    const PanTouch touch{state, location, previousLocation, factor};
    previousLocation = location;
    controller.perform(touch, [&] {
        if (state == GestureState::began)
            beginPan();
        else if (state == GestureState::changed)
            turn(location - touch.previous);
        else
            releasePan(factor);
    });
}

void Gestures::resumePan(const glm::vec2& location) {
    panningActionIdentifier = controller.newIdentifier();
    previousLocation = location;
}

void Gestures::beginPan() {
    panningActionIdentifier = controller.newIdentifier();
    controller.addAction(
        [&stage = controller.nodes] { stopHandles(stage); },
        panningActionIdentifier,
        "Camera Move",
        RegisterUndo::yes,
        Snapping::no);
}

void Gestures::turn(const glm::vec2& by) {
    controller.addAction(
        [&stage = controller.nodes, by] { turnCamera(stage, by); },
        panningActionIdentifier,
        "",
        RegisterUndo::no,
        Snapping::no);
}

void Gestures::releasePan(double animationFactor) {
    const double duration = animationFactor * kReleaseFactor;
    controller.addAction(
        [&stage = controller.nodes, duration] { straightenCamera(stage, duration); },
        panningActionIdentifier,
        "",
        RegisterUndo::no,
        Snapping::no);
}

void Gestures::pinch(GestureState state, float velocity) {
    const double factor = controller.model().animationFactor();
    controller.perform(PinchTouch{state, velocity, factor}, [&] {
        if (state == GestureState::ended)
            releasePinch(factor);
        else
            stepPinch(state, velocity);
    });
}

void Gestures::resumePinch() {
    pinchActionIdentifier = controller.newIdentifier();
}

void Gestures::stepPinch(GestureState state, float velocity) {
    const bool isFirst = state == GestureState::began;
    if (isFirst)
        pinchActionIdentifier = controller.newIdentifier();
    if (std::isnan(velocity)) {
        foundation::logLine("isNan");
        velocity = kFallbackVelocity;
    }
    pinchCamera(
        velocity / kPinchVelocity * kPinchUnits,
        pinchActionIdentifier,
        isFirst ? RegisterUndo::yes : RegisterUndo::no);
}

void Gestures::pinchCamera(float value, int identifier, RegisterUndo registerUndo) {
    controller.addAction(
        [&stage = controller.nodes, value] { pushCameraIn(stage, value); },
        identifier,
        "Camera Pinch",
        registerUndo,
        Snapping::no);
}

void Gestures::releasePinch(double animationFactor) {
    const double duration = animationFactor * kReleaseFactor;
    controller.addAction(
        [&stage = controller.nodes, duration] {
            stage.cameraPinchNode->runAction(SCNAction::moveTo(kHome, duration, glide()));
        },
        pinchActionIdentifier,
        "",
        RegisterUndo::no,
        Snapping::no);
}

void Gestures::doubleTap() {
    controller.perform(DoubleTap{}, [this] {
        controller.addAction(
            [&stage = controller.nodes] {
                resetStage(
                    stage,
                    CameraHandles::leave,
                    {.timing = elasticOut(kCenterPeriod), .duration = kCenterDuration});
            },
            controller.newIdentifier(),
            "Center",
            RegisterUndo::yes,
            Snapping::no);
    });
}

} // namespace zelvo::actions
